#pragma once
// The fonts a printer measures and draws with, one entry per family, size and style, kept for
// the run: printing sets the font for nearly every token, and building a font's metrics is far
// dearer than looking it up. Every figure comes from the font's design (no hinting, no kerning),
// so that a text is exactly as wide as the sum of its characters at every resolution, on paper
// and in the PDF alike. Text is Windows-1252: a table of the 256 characters holds each one's glyph
// and advance.
#include <array>
#include <cstdint>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/pdf/face_program.h"

namespace hlyd {

struct FaceKey {
    std::string family;  // UTF-8
    double points = 0;
    bool bold = false, italic = false, underline = false, strikeOut = false;
    bool operator==(const FaceKey&) const = default;
};
struct FaceKeyHash {
    std::size_t operator()(const FaceKey& key) const;
};

// Whether the text holds a byte below a blank, eight bytes at a time: a word has one exactly
// when subtracting a blank from each of its bytes borrows into a byte whose top bit was clear.
// Text laid out holds none (control characters are shown in caret notation).
inline bool anyControl(std::string_view text) {
    constexpr std::uint64_t kBlanks = 0x2020202020202020ull, kTops = 0x8080808080808080ull;
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, text.data() + i, 8);
        if ((word - kBlanks) & ~word & kTops) return true;
    }
    for (; i < text.size(); ++i)
        if (static_cast<unsigned char>(text[i]) < 0x20) return true;
    return false;
}

struct PrintFace {
    std::uint16_t index = 0;  // in the order the faces were first asked for
    FaceKey key;
    std::shared_ptr<const FaceProgram> program;
    double pixelSize = 0;                             // the em in device pixels
    double ascent = 0, descent = 0, capHeight = 0;    // in device pixels
    double lineSpacing = 0;                           // in device pixels
    double underlinePosition = 0, lineThickness = 0;  // below the baseline, in device pixels
    std::array<std::uint32_t, 256> glyph{};           // of each Windows-1252 character; control characters have none
    std::array<double, 256> advance{};                // in device pixels
    // The advance of every character from the blank on when they are all alike (a monospaced
    // face), else 0. Control characters take no room.
    double fixedAdvance = 0;

    // A listing measures nearly every token: in a monospaced face that is a count.
    double width(std::string_view text) const {
        if (fixedAdvance != 0 && !anyControl(text)) return fixedAdvance * static_cast<double>(text.size());
        if (fixedAdvance != 0) {
            std::size_t controls = 0;
            for (unsigned char c : text) controls += c < 0x20;
            return fixedAdvance * static_cast<double>(text.size() - controls);
        }
        double sum = 0;
        for (unsigned char c : text) sum += advance[c];
        return sum;
    }
};

// The font's own figures for a face, in device pixels, before the printer's rules for lines.
struct FaceFigures {
    double ascent = 0, descent = 0, leading = 0, capHeight = 0;
    double underlinePosition = 0, lineThickness = 0;
};

class PrintFaces {
public:
    // Fills a face's program, glyphs and advances for its key and pixel size, and gives its figures.
    using FaceMaker = std::function<FaceFigures(PrintFace& face)>;
    PrintFaces(int dotsPerInch, FaceMaker maker);
    int dotsPerInch() const { return dpi_; }
    const PrintFace& face(const FaceKey& key);
    const PrintFace& byIndex(std::uint16_t index) const { return *faces_[index]; }

private:
    int dpi_;
    FaceMaker maker_;
    std::unordered_map<FaceKey, std::uint16_t, FaceKeyHash> byKey_;
    std::vector<std::unique_ptr<PrintFace>> faces_;
};

}  // namespace hlyd
