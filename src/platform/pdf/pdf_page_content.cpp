#include "platform/pdf/pdf_page_content.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/pdf/pdf_syntax.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

// Rounded half away from zero, as llround does, without the library call that was a tenth of
// writing a page: the figures are far inside the range where a double holds every whole number.
std::int64_t whole(double units) {
    auto truncated = static_cast<std::int64_t>(units);
    double rest = units - static_cast<double>(truncated);
    return truncated + (rest >= 0.5) - (rest <= -0.5);
}

// One byte of a literal string, at `p`, which has room for two. Only what a reader would take for
// the string's end, an escape, or a line end to normalise (CR) is escaped.
char* putStringByte(char* p, unsigned char c) {
    if (c == '(' || c == ')' || c == '\\') *p++ = '\\';
    if (c == '\r') {
        *p++ = '\\';
        c = 'r';
    }
    *p++ = static_cast<char>(c);
    return p;
}

int red(std::uint32_t rgb) { return static_cast<int>(rgb >> 16 & 0xFF); }
int green(std::uint32_t rgb) { return static_cast<int>(rgb >> 8 & 0xFF); }
int blue(std::uint32_t rgb) { return static_cast<int>(rgb & 0xFF); }

// A grey (black above all) as one figure: fewer bytes for the colour a listing changes to most.
std::string colourText(std::uint32_t rgb, bool stroking) {
    std::string out;
    bool grey = red(rgb) == green(rgb) && green(rgb) == blue(rgb);
    appendNumber(out, red(rgb) / 255.0);
    if (!grey) {
        out += ' ';
        appendNumber(out, green(rgb) / 255.0);
        out += ' ';
        appendNumber(out, blue(rgb) / 255.0);
    }
    out += grey ? (stroking ? " G\n" : " g\n") : (stroking ? " RG\n" : " rg\n");
    return out;
}

}  // namespace

void PdfPageContent::write(std::string& out, const PageRecording& page, const std::vector<const PrintFace*>& faces,
                           double pointsPerPixel, PdfPoint corner) {
    out_ = &out;
    inText_ = placed_ = fillSet_ = strokeSet_ = stringOpen_ = false;
    font_ = -1;
    leading_ = 0;
    lineWidth_ = 0;
    // Units, y downwards from the printable area's corner, as the page was recorded.
    char matrix[96];
    double scale = pointsPerPixel / kUnitsPerPixel;
    std::snprintf(matrix, sizeof matrix, "%.9g 0 0 %.9g ", scale, -scale);
    out += matrix;
    appendNumber(out, corner.x);
    out += ' ';
    appendNumber(out, corner.y);
    out += " cm 2 J\n";
    for (const PageRecording::Op& op : page.ops()) {
        switch (op.kind) {
            case PageRecording::Kind::Text: text(page, op, *faces[op.face]); break;
            case PageRecording::Kind::Line: line(op); break;
            case PageRecording::Kind::Box: box(op); break;
        }
    }
    endText();
    noteDrawn();
}

// The characters drawn on the page go to their fonts, for the fonts to keep their glyphs.
void PdfPageContent::noteDrawn() {
    for (const std::unique_ptr<Codes>& codes : codes_) {
        if (!codes || !codes->anyDrawn) continue;
        std::bitset<256>& used = *fontOf_(*codes->face).used;
        for (std::size_t c = 0; c < 256; ++c)
            if (codes->drawn[c]) used.set(c);
        codes->anyDrawn = false;
    }
}

void PdfPageContent::text(const PageRecording& page, const PageRecording::Op& op, const PrintFace& face) {
    FontUse font = fontOf_(face);
    if (!op.artifact && page.actualOf(op).empty())
        spaceTo(op.x1 * kUnitsPerPixel, whole((op.y1 + face.ascent) * kUnitsPerPixel));
    setColour(op.colour, false);
    if (!inText_) {
        *out_ += "BT\n";
        inText_ = true;
        placed_ = false;
    }
    setFont(face, font);
    double baseline = op.y1 + face.ascent;
    moveTo(op.x1 * kUnitsPerPixel, whole(baseline * kUnitsPerPixel));
    // A reader copying or reading the page aloud skips an artifact.
    if (op.artifact || !page.actualOf(op).empty()) closeString();
    if (op.artifact) *out_ += "/Artifact BMC ";
    // Text that stands for bytes without a glyph gives those bytes back, as UTF-16BE.
    std::string_view actual = page.actualOf(op);
    if (!actual.empty()) {
        *out_ += "/Span <</ActualText <FEFF";
        for (unsigned char c : actual) appendHex16(*out_, cp1252CodePoint(c));
        *out_ += ">>> BDC ";
    }
    glyphs(page.textOf(op), face, font);
    if (op.artifact || !actual.empty()) {
        closeString();
        *out_ += "EMC\n";
    }
    if (face.key.underline || face.key.strikeOut) {
        endText();
        double y = face.key.underline ? baseline + face.underlinePosition : baseline - face.ascent * 0.3;
        std::int64_t left = whole(op.x1 * kUnitsPerPixel), top = whole(y * kUnitsPerPixel);
        appendInteger(*out_, left);
        *out_ += ' ';
        appendInteger(*out_, top);
        *out_ += ' ';
        appendInteger(*out_, whole(op.x2 * kUnitsPerPixel) - left);
        *out_ += ' ';
        appendInteger(*out_, whole((y + face.lineThickness) * kUnitsPerPixel) - top);
        *out_ += " re f\n";
    }
}

// The operator that selects the face's font, and each character's code in that font as it stands
// in a literal string, worked out once.
PdfPageContent::Codes& PdfPageContent::codesOf(const PrintFace& face, const FontUse& font) {
    if (codes_.size() <= face.index) codes_.resize(face.index + 1u);
    std::unique_ptr<Codes>& known = codes_[face.index];
    if (known) return *known;
    known = std::make_unique<Codes>();
    known->face = &face;
    known->selectFont = "/F" + std::to_string(font.number) + " " + pdfNumber(face.pixelSize * kUnitsPerPixel) + " Tf\n";
    for (int c = 0; c < 256; ++c) {
        std::uint32_t glyph = face.glyph[static_cast<std::size_t>(c)];
        if (glyph == 0) continue;
        char* start = known->bytes[static_cast<std::size_t>(c)].data();
        char* p = putStringByte(start, static_cast<unsigned char>(c));
        known->length[static_cast<std::size_t>(c)] = static_cast<std::uint8_t>(p - start);
        known->plain[static_cast<std::size_t>(c)] = p - start == 1;
    }
    return *known;
}

// The codes of the glyphs in a literal string; a character without a glyph that still takes room,
// as it was measured, moves the pen by its advance.
void PdfPageContent::glyphs(std::string_view text, const PrintFace& face, const FontUse& font) {
    Codes& codes = codesOf(face, font);
    codes.anyDrawn = true;
    openString();
    stringFace_ = &face;
    std::string& out = *out_;
    // Nearly every token is characters that each have a glyph and need no escape: their codes are
    // the text's own bytes. Each is noted drawn as it is looked at; those before one that is not
    // plain are noted by the longer way too.
    auto plainAndDrawn = [&](char c) {
        auto byte = static_cast<unsigned char>(c);
        codes.drawn[byte] |= codes.plain[byte];
        return codes.plain[byte];
    };
    if (std::all_of(text.begin(), text.end(), plainAndDrawn)) {
        out.append(text);
        penX_ += face.width(text) * kUnitsPerPixel;
        return;
    }
    for (std::size_t i = 0; i < text.size();) {
        std::size_t at = out.size();
        out.resize(at + (text.size() - i) * 4);  // two bytes a code, each perhaps escaped
        char* p = out.data() + at;
        for (; i < text.size(); ++i) {
            auto c = static_cast<unsigned char>(text[i]);
            std::size_t length = codes.length[c];
            if (length == 0) {
                if (face.advance[c] != 0) break;
                continue;
            }
            codes.drawn[c] = 1;  // no bit set: a byte a character keeps the loop free of a chain
            std::memcpy(p, codes.bytes[c].data(), 4);
            p += length;
        }
        out.resize(static_cast<std::size_t>(p - out.data()));
        if (i == text.size()) break;
        if (!adjusted_) out.insert(stringStart_, 1, '[');
        adjusted_ = true;
        out += ") ";
        appendNumber(out, -face.advance[static_cast<unsigned char>(text[i++])] / face.pixelSize * 1000);
        out += " (";
    }
    penX_ += face.width(text) * kUnitsPerPixel;
}

void PdfPageContent::openString() {
    if (stringOpen_) return;
    stringOpen_ = true;
    adjusted_ = false;
    stringStart_ = out_->size();
    *out_ += '(';
}

void PdfPageContent::closeString() {
    if (!stringOpen_) return;
    stringOpen_ = false;
    *out_ += adjusted_ ? ")]TJ\n" : ")Tj\n";
}

// A token that stands a few blanks of the open string's face past where it ended goes on in that
// string after those blanks: two bytes a blank against a move and a new string. In a listing
// nearly every token but a line's first is placed so, whatever its font and colour. The listing
// keeps a blank's width in whole twips, a hair narrower or wider than the face's own: kNear.
void PdfPageContent::spaceTo(double x, std::int64_t baseline) {
    constexpr double kMostBlanks = 4;
    if (!stringOpen_ || baseline != lineY_) return;
    const PrintFace& face = *stringFace_;
    auto blank = static_cast<unsigned char>(' ');
    double advance = face.advance[blank] * kUnitsPerPixel;
    const Codes& codes = *codes_[face.index];
    if (codes.length[blank] == 0 || advance <= 0) return;
    double blanks = std::round((x - penX_) / advance);
    if (blanks < 1 || blanks > kMostBlanks || std::fabs(x - penX_ - blanks * advance) > kNear) return;
    codes_[face.index]->drawn[blank] = 1;
    for (int n = 0; n < static_cast<int>(blanks); ++n) out_->append(codes.bytes[blank].data(), codes.length[blank]);
    penX_ += blanks * advance;
}

// The first text of a text object is placed where it stands; every one after it by its distance
// from the last place, unless it goes on where the glyphs before it ended, give or take kNear.
void PdfPageContent::moveTo(double x, std::int64_t baseline) {
    if (placed_ && baseline == lineY_ && std::fabs(x - penX_) <= kNear) return;
    closeString();
    std::int64_t left = whole(x);
    if (!placed_) {
        *out_ += "1 0 0 -1 ";
        appendInteger(*out_, left);
        *out_ += ' ';
        appendInteger(*out_, baseline);
        *out_ += " Tm\n";
    } else {
        // Text space has y upwards; the page's units have it downwards. A move down to the next
        // line's start, as a listing makes at every line, is T* once the leading is set.
        std::int64_t dx = left - lineX_, dy = lineY_ - baseline;
        if (dx == 0 && dy != 0 && dy == -leading_) {
            *out_ += "T*\n";
        } else {
            appendInteger(*out_, dx);
            *out_ += ' ';
            appendInteger(*out_, dy);
            if (dy != 0) leading_ = -dy;
            *out_ += dy != 0 ? " TD\n" : " Td\n";
        }
    }
    placed_ = true;
    lineX_ = left;
    lineY_ = baseline;
    penX_ = static_cast<double>(left);
}

void PdfPageContent::setFont(const PrintFace& face, const FontUse& font) {
    if (font_ == static_cast<int>(font.number) && fontSize_ == face.pixelSize) return;
    closeString();
    font_ = static_cast<int>(font.number);
    fontSize_ = face.pixelSize;
    *out_ += codesOf(face, font).selectFont;
}

void PdfPageContent::setColour(std::uint32_t rgb, bool stroking) {
    std::uint32_t& current = stroking ? stroke_ : fill_;
    bool& set = stroking ? strokeSet_ : fillSet_;
    if (set && current == rgb) return;
    closeString();
    auto known = std::find_if(colours_.begin(), colours_.end(),
                              [&](const auto& c) { return c.rgb == rgb && c.stroking == stroking; });
    if (known == colours_.end()) known = colours_.insert(colours_.end(), {rgb, stroking, colourText(rgb, stroking)});
    *out_ += known->text;
    current = rgb;
    set = true;
}

void PdfPageContent::endText() {
    closeString();
    if (!inText_) return;
    *out_ += "ET\n";
    inText_ = placed_ = false;
}

void PdfPageContent::point(double x, double y) {
    appendInteger(*out_, whole(x * kUnitsPerPixel));
    *out_ += ' ';
    appendInteger(*out_, whole(y * kUnitsPerPixel));
}

void PdfPageContent::line(const PageRecording::Op& op) {
    endText();
    setColour(op.colour, true);
    if (op.width != lineWidth_) {
        lineWidth_ = op.width;
        appendInteger(*out_, static_cast<std::int64_t>(op.width) * kUnitsPerPixel);
        *out_ += " w\n";
    }
    point(op.x1, op.y1);
    *out_ += " m ";
    point(op.x2, op.y2);
    *out_ += " l S\n";
}

void PdfPageContent::box(const PageRecording::Op& op) {
    endText();
    setColour(op.colour, false);
    std::int64_t left = whole(std::min(op.x1, op.x2) * kUnitsPerPixel);
    std::int64_t top = whole(std::min(op.y1, op.y2) * kUnitsPerPixel);
    appendInteger(*out_, left);
    *out_ += ' ';
    appendInteger(*out_, top);
    *out_ += ' ';
    appendInteger(*out_, whole(std::max(op.x1, op.x2) * kUnitsPerPixel) - left);
    *out_ += ' ';
    appendInteger(*out_, whole(std::max(op.y1, op.y2) * kUnitsPerPixel) - top);
    *out_ += " re f\n";
}

}  // namespace hlyd
