#pragma once
// The find bar under the view: the text, match case and whole word, next and previous, and a
// search of all open files. Enter goes to the next place, Shift+Enter to the previous one, and
// Escape closes the bar and gives the view its focus back.
#include <QWidget>

class QCheckBox;
class QLineEdit;

namespace hlyd {

struct SearchOptions;

class FindBar : public QWidget {
    Q_OBJECT
public:
    explicit FindBar(QWidget* parent = nullptr);

    // Shows the bar with the text field focused and its text selected, ready to be typed over.
    void open();
    QString text() const;
    SearchOptions options() const;
    QLineEdit* field() const { return field_; }

signals:
    void findAsked(bool forward);
    void findAllAsked();
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* field_ = nullptr;
    QCheckBox* matchCase_ = nullptr;
    QCheckBox* wholeWord_ = nullptr;
};

}  // namespace hlyd
