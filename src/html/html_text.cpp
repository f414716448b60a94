#include "html/html_text.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace hlyd {

namespace {

// A control character is shown by its picture, so that a NUL or an escape in a name or in the
// source is seen and never reaches the reader raw; the five bytes Windows-1252 leaves undefined
// show the replacement character. A tab is layout, and stays.
bool appendVisible(std::string& out, char c) {
    auto byte = static_cast<unsigned char>(c);
    if ((byte < 0x20 && c != '\t') || byte == 0x7F) {
        char picture[12];
        std::snprintf(picture, sizeof picture, "&#x%X;", 0x2400 + (byte == 0x7F ? 0x21 : byte));
        out += picture;
        return true;
    }
    if (byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D) {
        out += "&#xFFFD;";
        return true;
    }
    return false;
}

// The bytes that source text shows as something else; every other byte is copied as it stands.
struct SourceBytes {
    bool special[256] = {};
    SourceBytes() {
        for (int c = 0; c < 0x20; ++c) special[c] = c != '\t';
        for (int c : {0x7F, 0x81, 0x8D, 0x8F, 0x90, 0x9D, int{'<'}, int{'>'}}) special[c] = true;
    }
};
const SourceBytes kSourceBytes;

// Where the plain bytes from `from` end; four are tested at a time, since a special byte is rare.
std::size_t plainRunEnd(std::string_view text, std::size_t from) {
    const bool* special = kSourceBytes.special;
    auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    std::size_t i = from;
    while (i + 4 <= text.size() &&
           !(special[byte(i)] | special[byte(i + 1)] | special[byte(i + 2)] | special[byte(i + 3)]))
        i += 4;
    while (i < text.size() && !special[byte(i)]) ++i;
    return i;
}

}  // namespace

// "&" and quotes pass as they stand in the source, on purpose: the listing shows the code as
// written, and an "&" there can open no markup. Plain runs go over in one piece: nearly all
// text is plain.
void appendSourceText(std::string& out, std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
        std::size_t run = plainRunEnd(text, i);
        out.append(text.data() + i, run - i);
        if (run == text.size()) return;
        char c = text[run];
        if (!appendVisible(out, c)) out += c == '<' ? "&lt;" : "&gt;";
        i = run + 1;
    }
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
