#pragma once
// Where a large dialog opens: at a size that suits the screen and over the window it belongs to.
#include <QWidget>

namespace hlyd {

// Sizes `dialog` to what its content asks for, but no wider than two thirds of the screen (nor
// narrower than its content allows), and centres it on `owner`, or on the screen without one;
// it stays wholly on the screen.
void fitAndCentre(QWidget& dialog, const QWidget* owner);

}  // namespace hlyd
