#pragma once
// A recorded page as the content stream of a PDF page. A listing is nearly all text, a few tokens
// to a line: the text of a page goes in one text object, the pen moved from token to token by
// whole numbers, the font and colour set only when they change, and each glyph written as the
// bytes of its code. The stream comes out half the size of one with a text object for each token,
// every glyph in hex and every place in decimals, so it is both quicker to compress and smaller.
#include <array>
#include <bitset>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/pdf/page_recording.h"
#include "platform/pdf/pdf_geometry.h"
#include "platform/pdf/print_faces.h"

namespace hlyd {

class PdfPageContent {
public:
    // The font of the file a face draws with: its resource number, and the characters drawn in it,
    // for the font to keep. Every font's codes are the text's own Windows-1252 bytes.
    struct FontUse {
        std::size_t number;
        std::bitset<256>* used;
    };
    using FontOf = std::function<FontUse(const PrintFace&)>;

    explicit PdfPageContent(FontOf fontOf) : fontOf_(std::move(fontOf)) {}
    // Appends the page's drawing to `out`: its device pixels are `pointsPerPixel` points, y
    // downwards from `corner`, the printable area's top left in points from the sheet's foot.
    // `faces` holds, by face index, each face the page draws in.
    void write(std::string& out, const PageRecording& page, const std::vector<const PrintFace*>& faces,
               double pointsPerPixel, PdfPoint corner);

    // Positions are whole numbers of a hundredth of a device pixel: finer than any eye or printer
    // tells apart, and as exact as the recording places the text, which matters to a reader that
    // lays a page's text out again in columns.
    static constexpr int kUnitsPerPixel = 100;
    // A token that goes on from the glyphs before it within this many units is not moved: a token
    // stands at most a twentieth of a device pixel (at the PDF's resolution, a two-hundredth of a
    // point) from where it was printed, and the pen goes on from the glyphs, so that never adds up.
    static constexpr double kNear = kUnitsPerPixel / 20.0;

private:
    void text(const PageRecording& page, const PageRecording::Op& op, const PrintFace& face);
    void glyphs(std::string_view text, const PrintFace& face, const FontUse& font);
    struct Codes {
        std::array<std::array<char, 4>, 256> bytes{};
        std::array<std::uint8_t, 256> length{};  // 0 for a character without a glyph
        std::array<bool, 256> plain{};           // has a glyph, and its code is its own byte
        std::string selectFont;
        const PrintFace* face = nullptr;
        std::array<std::uint8_t, 256> drawn{};  // so far in the document
        bool anyDrawn = false;                  // on the page being written
    };
    Codes& codesOf(const PrintFace& face, const FontUse& font);
    void moveTo(double x, std::int64_t baseline);
    void spaceTo(double x, std::int64_t baseline);
    void openString();
    void closeString();
    void setFont(const PrintFace& face, const FontUse& font);
    void setColour(std::uint32_t rgb, bool stroking);
    void endText();
    void noteDrawn();
    void line(const PageRecording::Op& op);
    void box(const PageRecording::Op& op);
    void point(double x, double y);

    FontOf fontOf_;
    std::string* out_ = nullptr;
    // What the stream has set so far on this page.
    bool inText_ = false, placed_ = false;
    std::int64_t lineX_ = 0, lineY_ = 0;  // where the last move put the line's start, in units
    double penX_ = 0;                     // where the last glyphs ended, in units
    std::int64_t leading_ = 0;            // the move from line to line a bare T* makes; 0: none set
    // The literal string being written, left open for the next token to go on in, and the face
    // whose codes are in it.
    bool stringOpen_ = false, adjusted_ = false;
    std::size_t stringStart_ = 0;
    const PrintFace* stringFace_ = nullptr;
    int font_ = -1;
    double fontSize_ = 0;
    bool fillSet_ = false, strokeSet_ = false;
    std::uint32_t fill_ = 0, stroke_ = 0;
    int lineWidth_ = 0;
    // The operators of the colours met so far: a listing changes colour nearly every token.
    struct ColourText {
        std::uint32_t rgb;
        bool stroking;
        std::string text;
    };
    std::vector<ColourText> colours_;
    std::vector<std::unique_ptr<Codes>> codes_;  // by face index
};

}  // namespace hlyd
