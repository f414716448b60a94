#include "dialogs/element_sample.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "platform/qt/classic_colour.h"
#include "platform/qt/classic_fonts.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

// What each element looks like in a listing, so the sample shows the font where it will be used.
const char* sampleText(int element) {
    switch (element) {
        case kElemComments: return "' Totals by region";
        case kElemIdentifiers: return "nRegion = iCount";
        case kElemKeyWords: return "If Then Else End Sub";
        case kElemLiterals: return "\"North\" 1024";
        case kElemProjectFile: return "Form=frmMain.frm";
        case kElemProcedures: return "Private Sub Form_Load()";
        case kElemHeadersFooters: return "Page 1  Printed: 23-Nov-26";
        default: return "00100";
    }
}

}  // namespace

QFont qtFontOf(const FontSpec& spec) {
    QFont font(resolveFamily(fromUtf8(spec.Name)).family);
    if (spec.Size > 0) font.setPointSizeF(spec.Size);
    font.setBold(spec.Bold);
    font.setItalic(spec.Italic);
    font.setUnderline(spec.Underline);
    font.setStrikeOut(spec.Strikethrough);
    return font;
}

FontSpec fontSpecOf(const QFont& font) {
    return {toUtf8(font.family()), font.pointSizeF(), font.bold(), font.italic(), font.underline(), font.strikeOut()};
}

std::uint32_t classicValue(const QColor& colour) {
    return static_cast<std::uint32_t>(colour.red()) | static_cast<std::uint32_t>(colour.green()) << 8 |
           static_cast<std::uint32_t>(colour.blue()) << 16;
}

ElementSample::ElementSample(int element, QWidget* parent) : QWidget(parent), text_(sampleText(element)) {
    setObjectName(QString("picSample%1").arg(element));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ElementSample::showAttributes(const AttributeRecord& a) {
    font_ = qtFontOf(a.Font);
    fore_ = classicColour(a.ForeColor);
    back_ = classicColour(a.BackColor);
    // Whole at the sizes people read code in; a very large font is cut rather than the dialog
    // growing past the screen.
    QSize whole = sizeHint();
    setMinimumSize(std::min(whole.width(), fontMetrics().averageCharWidth() * 36), std::min(whole.height(), 96));
    updateGeometry();
    update();
}

QSize ElementSample::sizeHint() const {
    QFontMetrics metrics(font_);
    return {metrics.horizontalAdvance(text_) + 12, metrics.height() + 8};
}

void ElementSample::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), back_);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setFont(font_);
    painter.setPen(fore_);
    painter.drawText(rect().adjusted(6, 0, -6, 0), Qt::AlignVCenter | Qt::AlignLeft, text_);
}

}  // namespace hlyd
