#include "platform/qt/page_recording.h"

#include <QGlyphRun>
#include <QPainter>
#include <cmath>

#include "platform/qt/print_faces.h"

namespace hlyd {

namespace {

// Less than a hundredth of a pixel apart: the pen went on from where the text before left it.
bool sameSpot(double a, double b) { return std::fabs(a - b) < 0.01; }

// The glyphs of a text placed by the face's own advances, as it was measured.
QGlyphRun glyphRun(const PrintFace& face, std::string_view text) {
    QList<quint32> glyphs;
    QList<QPointF> positions;
    glyphs.reserve(static_cast<qsizetype>(text.size()));
    positions.reserve(static_cast<qsizetype>(text.size()));
    double x = 0;
    for (unsigned char c : text) {
        if (face.glyph[c] != 0) {
            glyphs.append(face.glyph[c]);
            positions.append(QPointF(x, 0));
        }
        x += face.advance[c];
    }
    QGlyphRun run;
    run.setRawFont(face.raw);
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    run.setUnderline(face.key.underline);
    run.setStrikeOut(face.key.strikeOut);
    return run;
}

}  // namespace

void PageRecording::clear() {
    ops_.clear();
    text_.clear();
}

void PageRecording::text(double x, double y, std::uint16_t face, QRgb colour, std::string_view bytes, double width,
                         bool artifact, std::string_view actual) {
    if (!ops_.empty() && actual.empty()) {
        Op& last = ops_.back();
        if (last.kind == Kind::Text && last.face == face && last.colour == colour && last.artifact == artifact &&
            sameSpot(last.y1, y) && sameSpot(last.x2, x) && last.start + last.length == text_.size()) {
            text_.append(bytes);
            last.length += static_cast<std::uint32_t>(bytes.size());
            last.x2 = x + width;
            return;
        }
    }
    ops_.push_back({Kind::Text, face, 0, colour, x, y, x + width, y, static_cast<std::uint32_t>(text_.size()),
                    static_cast<std::uint32_t>(bytes.size()), artifact, static_cast<std::uint32_t>(actual.size())});
    text_.append(bytes);
    text_.append(actual);
}

void PageRecording::line(double x1, double y1, double x2, double y2, QRgb colour, int width) {
    ops_.push_back({Kind::Line, 0, width, colour, x1, y1, x2, y2, 0, 0, false, 0});
}

void PageRecording::box(double x1, double y1, double x2, double y2, QRgb colour) {
    ops_.push_back({Kind::Box, 0, 0, colour, x1, y1, x2, y2, 0, 0, false, 0});
}

void PageRecording::replay(QPainter& painter, const PrintFaces& faces) const {
    QRgb penColour = 0;
    bool penSet = false;
    for (const Op& op : ops_) {
        switch (op.kind) {
            case Kind::Text: {
                const PrintFace& face = faces.byIndex(op.face);
                if (!penSet || penColour != op.colour) {
                    painter.setPen(QColor::fromRgb(op.colour));
                    penColour = op.colour;
                    penSet = true;
                }
                painter.drawGlyphRun(QPointF(op.x1, op.y1 + face.ascent), glyphRun(face, textOf(op)));
                break;
            }
            case Kind::Line:
                painter.setPen(QPen(QColor::fromRgb(op.colour), op.width, Qt::SolidLine, Qt::SquareCap));
                penSet = false;
                painter.drawLine(QPointF(op.x1, op.y1), QPointF(op.x2, op.y2));
                break;
            case Kind::Box:
                painter.fillRect(QRectF(QPointF(op.x1, op.y1), QPointF(op.x2, op.y2)).normalized(),
                                 QColor::fromRgb(op.colour));
                break;
        }
    }
}

}  // namespace hlyd
