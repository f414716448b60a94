#pragma once
// Parts that every form of the program builds the same way.
#include <QDialog>
#include <QHBoxLayout>
#include <functional>
#include <string>

#include "platform/qt/qt_text.h"

namespace hlyd {

// The forms give every control the name it has in the program's model, so that tests and the
// model's handlers find it by that name.
template <class W>
W* named(const std::string& name, W* widget) {
    widget->setObjectName(fromUtf8(name));
    return widget;
}

// OK (the default button), Cancel and Help at the right of a row: OK runs `ok`, Cancel leaves the
// form with nothing kept, Help opens `helpPage` of the program's help when the help is there.
QHBoxLayout* okCancelHelpRow(QDialog* form, const std::function<void()>& ok, const std::string& helpPage);

}  // namespace hlyd
