#include "platform/qt/glyph_procedure.h"

#include "platform/pdf/pdf_syntax.h"

namespace hlyd {

namespace {

// A point of the outline, turned to the PDF's y upwards.
void appendPoint(std::string& out, const QPainterPath::Element& e) {
    appendNumber(out, e.x);
    out += ' ';
    appendNumber(out, -e.y);
    out += ' ';
}

}  // namespace

std::string glyphProcedure(const QPainterPath& outline, double width) {
    QRectF box = outline.boundingRect();
    std::string out = pdfNumber(width) + " 0 " + pdfNumber(box.left()) + " " + pdfNumber(-box.bottom()) + " " +
                      pdfNumber(box.right()) + " " + pdfNumber(-box.top()) + " d1\n";
    if (outline.isEmpty()) return out;
    for (int i = 0; i < outline.elementCount(); ++i) {
        const QPainterPath::Element& e = outline.elementAt(i);
        switch (e.type) {
            case QPainterPath::MoveToElement:
                if (i > 0) out += "h ";
                appendPoint(out, e);
                out += "m\n";
                break;
            case QPainterPath::LineToElement:
                appendPoint(out, e);
                out += "l\n";
                break;
            case QPainterPath::CurveToElement:
                if (i + 2 >= outline.elementCount()) break;
                appendPoint(out, e);
                appendPoint(out, outline.elementAt(i + 1));
                appendPoint(out, outline.elementAt(i + 2));
                out += "c\n";
                i += 2;
                break;
            case QPainterPath::CurveToDataElement: break;  // taken with its curve
        }
    }
    // Font outlines fill by the non-zero winding rule, whatever rule the path object carries.
    out += "h f\n";
    return out;
}

}  // namespace hlyd
