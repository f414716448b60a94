#pragma once
// The Fonts tab of the print options: one row per language element with its print font, size,
// styles and colour, and a sample drawn in them.
#include <QWidget>
#include <array>

#include "models/print_options_model.h"

class QComboBox;
class QDoubleSpinBox;
class QCheckBox;
class QPushButton;
class QLabel;

namespace hlyd {

class PrintFontsTab : public QWidget {
public:
    // The rows edit `m`'s fonts directly; the printer's fonts are offered in each list.
    explicit PrintFontsTab(PrintOptionsModel& m);
    // Shows the model's fonts.
    void load();
    // The row's font list, where a refusal leaves the focus.
    QWidget* fontField(int element) const;

private:
    struct Row {
        QComboBox* name = nullptr;
        QDoubleSpinBox* size = nullptr;
        std::array<QCheckBox*, 4> styles{};  // bold, italic, underline, strikethrough
        QPushButton* colour = nullptr;
        QLabel* sample = nullptr;
    };
    void addRow(int element, const QStringList& printerFonts);
    void store();
    void showSamples();
    void chooseColour(int element);

    PrintOptionsModel& m_;
    bool loading_ = true;  // the widgets are being filled: their signals are not the user's
    std::array<Row, kElementCount + 1> rows_{};
};

}  // namespace hlyd
