#include "platform/qt/page_replay.h"

#include <QGlyphRun>

#include "platform/qt/qt_faces.h"

namespace hlyd {

namespace {

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
    run.setRawFont(rawFontOf(face));
    run.setGlyphIndexes(glyphs);
    run.setPositions(positions);
    run.setUnderline(face.key.underline);
    run.setStrikeOut(face.key.strikeOut);
    return run;
}

}  // namespace

void replayPage(QPainter& painter, const PageRecording& page, const PrintFaces& faces) {
    QRgb penColour = 0;
    bool penSet = false;
    for (const PageRecording::Op& op : page.ops()) {
        switch (op.kind) {
            case PageRecording::Kind::Text: {
                const PrintFace& face = faces.byIndex(op.face);
                if (!penSet || penColour != op.colour) {
                    painter.setPen(QColor::fromRgb(op.colour));
                    penColour = op.colour;
                    penSet = true;
                }
                painter.drawGlyphRun(QPointF(op.x1, op.y1 + face.ascent), glyphRun(face, page.textOf(op)));
                break;
            }
            case PageRecording::Kind::Line:
                painter.setPen(QPen(QColor::fromRgb(op.colour), op.width, Qt::SolidLine, Qt::SquareCap));
                penSet = false;
                painter.drawLine(QPointF(op.x1, op.y1), QPointF(op.x2, op.y2));
                break;
            case PageRecording::Kind::Box:
                painter.fillRect(QRectF(QPointF(op.x1, op.y1), QPointF(op.x2, op.y2)).normalized(),
                                 QColor::fromRgb(op.colour));
                break;
        }
    }
}

}  // namespace hlyd
