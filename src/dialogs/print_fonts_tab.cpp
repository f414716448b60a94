#include "dialogs/print_fonts_tab.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include "platform/printer.h"
#include "platform/qt/qt_text.h"
#include "printing/print_state.h"

namespace hlyd {

namespace {

constexpr int kStyles = 4;

// 0x00BBGGRR as the settings hold it.
QColor colourOf(std::uint32_t value) { return QColor(value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF); }
std::uint32_t valueOf(const QColor& c) {
    return static_cast<std::uint32_t>(c.red()) | static_cast<std::uint32_t>(c.green()) << 8 |
           static_cast<std::uint32_t>(c.blue()) << 16;
}

// Font names are the system's, in UTF-8 as the printer lists and takes them: no source text.
QStringList printerFonts() {
    QStringList names;
    if (Printer* printer = printState().PrinterPresent ? currentPrinter() : nullptr)
        for (const std::string& font : printer->fonts()) names << fromUtf8(font);
    return names;
}

}  // namespace

PrintFontsTab::PrintFontsTab(PrintOptionsModel& m) : m_(m) {
    auto* grid = new QGridLayout(this);
    const char* heads[] = {"Element", "Font", "Size", "Bold", "Italic", "Underline", "Strikeout", "Colour", "Sample"};
    for (int c = 0; c < 9; ++c) grid->addWidget(new QLabel(heads[c]), 0, c);
    QStringList fonts = printerFonts();
    for (int e = 1; e <= kElementCount; ++e) addRow(e, fonts);
    grid->setRowStretch(kElementCount + 1, 1);
    grid->setColumnStretch(8, 1);
}

void PrintFontsTab::addRow(int e, const QStringList& fonts) {
    auto* grid = static_cast<QGridLayout*>(layout());
    Row& row = rows_[e];
    QString index = QString::number(e);
    grid->addWidget(new QLabel(fromUtf8(elementName(e))), e, 0);
    row.name = new QComboBox;
    row.name->setObjectName("cboFont" + index);
    row.name->setEditable(true);
    row.name->addItems(fonts);
    connect(row.name, &QComboBox::currentTextChanged, this, [this] { store(); });
    grid->addWidget(row.name, e, 1);
    row.size = new QDoubleSpinBox;
    row.size->setObjectName("spnSize" + index);
    row.size->setDecimals(1);
    row.size->setRange(0, 999);  // above 100 the check says what will be used
    connect(row.size, &QDoubleSpinBox::valueChanged, this, [this] { store(); });
    grid->addWidget(row.size, e, 2);
    for (int s = 0; s < kStyles; ++s) {
        row.styles[s] = new QCheckBox;
        row.styles[s]->setObjectName("chkStyle" + index + "_" + QString::number(s));
        connect(row.styles[s], &QCheckBox::toggled, this, [this] { store(); });
        grid->addWidget(row.styles[s], e, 3 + s, Qt::AlignHCenter);
    }
    row.colour = new QPushButton;
    row.colour->setObjectName("cmdColour" + index);
    connect(row.colour, &QPushButton::clicked, this, [this, e] { chooseColour(e); });
    grid->addWidget(row.colour, e, 7);
    row.sample = new QLabel("AaBbYyZz 123");
    grid->addWidget(row.sample, e, 8);
}

QWidget* PrintFontsTab::fontField(int element) const {
    return element >= 1 && element <= kElementCount ? rows_[element].name : nullptr;
}

void PrintFontsTab::load() {
    loading_ = true;
    for (int e = 1; e <= kElementCount; ++e) {
        const PrintFontRow& font = m_.v.fonts[e];
        Row& row = rows_[e];
        row.name->setCurrentText(fromUtf8(font.Name));
        row.size->setValue(font.Size);
        bool styles[kStyles] = {font.Bold, font.Italic, font.Underline, font.Strikethrough};
        for (int s = 0; s < kStyles; ++s) row.styles[s]->setChecked(styles[s]);
    }
    loading_ = false;
    showSamples();
}

void PrintFontsTab::store() {
    if (loading_) return;
    for (int e = 1; e <= kElementCount; ++e) {
        PrintFontRow& font = m_.v.fonts[e];
        const Row& row = rows_[e];
        font.Name = toUtf8(row.name->currentText());
        font.Size = row.size->value();
        font.Bold = row.styles[0]->isChecked();
        font.Italic = row.styles[1]->isChecked();
        font.Underline = row.styles[2]->isChecked();
        font.Strikethrough = row.styles[3]->isChecked();
    }
    showSamples();
}

void PrintFontsTab::showSamples() {
    for (int e = 1; e <= kElementCount; ++e) {
        const PrintFontRow& font = m_.v.fonts[e];
        QFont shown(fromUtf8(font.Name));
        shown.setPointSizeF(font.Size > 0 ? font.Size : 12);
        shown.setBold(font.Bold);
        shown.setItalic(font.Italic);
        shown.setUnderline(font.Underline);
        shown.setStrikeOut(font.Strikethrough);
        Row& row = rows_[e];
        row.sample->setFont(shown);
        QPalette palette = row.sample->palette();
        palette.setColor(QPalette::WindowText, colourOf(font.ForeColor));
        row.sample->setPalette(palette);
        row.colour->setStyleSheet("background-color: " + colourOf(font.ForeColor).name());
    }
}

void PrintFontsTab::chooseColour(int element) {
    PrintFontRow& font = m_.v.fonts[element];
    QColor chosen = QColorDialog::getColor(colourOf(font.ForeColor), this, "Colour");
    if (!chosen.isValid()) return;
    font.ForeColor = valueOf(chosen);
    showSamples();
}

}  // namespace hlyd
