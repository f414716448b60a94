#pragma once
// The About box: the program's name, its version and what it does, in a box as large as its text.
#include <QDialog>

namespace hlyd {

class AboutBox : public QDialog {
public:
    explicit AboutBox(QWidget* parent);
};

// What the program does, in one sentence, for the About box.
const char* aboutSentence();

}  // namespace hlyd
