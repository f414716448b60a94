#include "html/html_text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace hlyd {

namespace {

char* put(char* out, std::string_view text) { return std::copy(text.begin(), text.end(), out); }

// A control character is shown by its picture, so that a NUL or an escape in a name or in the
// source is seen and never reaches the reader raw; the five bytes Windows-1252 leaves undefined
// show the replacement character. A tab is layout, and stays. Returns the end of what was written
// at `out`, which has room for kWidestShownByte bytes; `out` itself when the byte is shown as it is.
char* writeVisible(char* out, unsigned char byte) {
    if ((byte < 0x20 && byte != '\t') || byte == 0x7F) {
        static constexpr char kHex[] = "0123456789ABCDEF";
        unsigned picture = 0x2400u + (byte == 0x7F ? 0x21u : byte);
        out = put(out, "&#x");
        for (int shift = 12; shift >= 0; shift -= 4) *out++ = kHex[(picture >> shift) & 0xFu];
        return put(out, ";");
    }
    if (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D) {
        return put(out, "&#xFFFD;");
    }
    return out;
}

bool appendVisible(std::string& out, char c) {
    char shown[kWidestShownByte];
    char* end = writeVisible(shown, static_cast<unsigned char>(c));
    if (end == shown) return false;
    out.append(shown, static_cast<std::size_t>(end - shown));
    return true;
}

// Whether any byte of `word` may need showing as something else: a control byte, a byte from
// 0x7F up, or an angle bracket. A tab and the high bytes that are shown as they stand answer yes
// too; the byte-wise path then sorts them out. Each test is the borrow or carry of a byte into
// its high bit, so that all the bytes of the word are tested at once.
template <class Word>
bool mayHoldSpecial(Word x) {
    constexpr Word kOnes = static_cast<Word>(~Word{0} / 255);
    constexpr Word kHigh = kOnes * 0x80;
    Word control = (x - kOnes * 0x20) & ~x;
    Word fromDelete = (x + kOnes) | x;
    Word angles = (x & ~(kOnes * 0x02)) ^ (kOnes * '<');  // '<' and '>' differ in one bit
    Word angle = (angles - kOnes) & ~angles;
    return ((control | fromDelete | angle) & kHigh) != 0;
}

template <class Word>
Word wordAt(const char* at) {
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

template <class Word>
void putWord(char* at, Word word) {
    std::memcpy(at, &word, sizeof word);
}

// The bytes shown as they stand in source text; every other byte is shown as something else.
struct PlainBytes {
    bool plain[256] = {};
    PlainBytes() {
        for (int c = 0; c < 256; ++c) plain[c] = c >= 0x20 || c == '\t';
        for (int c : {0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D, int{'<'}, int{'>'}}) plain[c] = false;
    }
};
const PlainBytes kPlainBytes;

// Kept out of the way of the plain path, which then needs few registers to save.
[[gnu::noinline]] char* writeShown(char* out, std::string_view text) {
    for (char c : text) {
        auto byte = static_cast<unsigned char>(c);
        char* end = writeVisible(out, byte);
        if (end != out) {
            out = end;
        } else if (c == '<' || c == '>') {
            out = put(out, c == '<' ? "&lt;" : "&gt;");
        } else {
            *out++ = c;
        }
    }
    return out;
}

}  // namespace

// "&" and quotes pass as they stand in the source, on purpose: the listing shows the code as
// written, and an "&" there can open no markup. Nearly all texts are plain and short: they are
// tested and copied in the same words of eight (or four) bytes, the last word overlapping the one
// before instead of a loop over the bytes left; a word that may hold a byte to show sends the
// whole text the slow way, byte by byte.
char* writeSourceText(char* out, std::string_view text) {
    const char* in = text.data();
    std::size_t n = text.size();
    if (n >= 8) {
        for (std::size_t i = 0; i + 8 < n; i += 8) {
            auto word = wordAt<std::uint64_t>(in + i);
            if (mayHoldSpecial(word)) return writeShown(out, text);
            putWord(out + i, word);
        }
        auto last = wordAt<std::uint64_t>(in + n - 8);
        if (mayHoldSpecial(last)) return writeShown(out, text);
        putWord(out + n - 8, last);
        return out + n;
    }
    if (n >= 4) {
        auto first = wordAt<std::uint32_t>(in), last = wordAt<std::uint32_t>(in + n - 4);
        if (mayHoldSpecial(first) || mayHoldSpecial(last)) return writeShown(out, text);
        putWord(out, first);
        putWord(out + n - 4, last);
        return out + n;
    }
    bool plain = true;
    for (std::size_t i = 0; i < n; ++i) {
        plain &= kPlainBytes.plain[static_cast<unsigned char>(in[i])];
        out[i] = in[i];
    }
    return plain ? out + n : writeShown(out, text);
}

// Names come from the user's disk and source (a file may be called "x<b onmouseover=...>.bas"):
// they are text, never markup.
std::string escapedText(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (appendVisible(out, c)) continue;
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            case '\'': out += "&#39;"; break;
            default: out += c;
        }
    }
    return out;
}

// A font name inside the style sheet, where character references mean nothing: the characters
// that could end the rule or the style element are left out.
std::string styleSafe(std::string name) {
    std::erase_if(name, [](char c) {
        auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F || std::string_view("<>{};\"'\\").find(c) != std::string_view::npos;
    });
    return name;
}

}  // namespace hlyd
