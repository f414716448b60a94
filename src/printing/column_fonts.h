#pragma once
// The code's print fonts made smaller while a file prints in columns too narrow for them.
#include <array>

#include "settings/attributes.h"

namespace hlyd {

// The smallest size that fitting a column makes of a font (one chosen smaller stays as it is).
constexpr double kLeastFittedPoints = 6;

// The factor by which the code's fonts shrink so that a column of the page in force holds a line
// of code beside its connectors, line numbers, wrap mark and some indentation; 1 in one column,
// or where the column is wide enough.
double columnFitScale();

// While it lives, the code's print fonts (the headings' stay) are fitted to the columns, and the
// print metrics measured in them; then the sizes of the settings come back, and their metrics.
class FontsFittedToColumns {
public:
    FontsFittedToColumns();
    ~FontsFittedToColumns();
    FontsFittedToColumns(const FontsFittedToColumns&) = delete;
    FontsFittedToColumns& operator=(const FontsFittedToColumns&) = delete;

private:
    std::array<double, kElementCount + 1> kept_{};
    bool fitted_ = false;
};

}  // namespace hlyd
