#include "html/site_line.h"

#include <algorithm>

#include "html/gen_html.h"
#include "html/html_text.h"
#include "html/site_connectors.h"
#include "platform/text_encoding.h"

namespace hlyd {

// Unlike the single document, "&" and quotes are escaped too: a string holding "&copy" must not
// show a sign the code never held.
std::string siteText(std::string_view text) { return cp1252ToUtf8(escapedText(std::string(text))); }

namespace {

bool isUtf8(std::string_view text) {
    constexpr std::size_t kBroken = 9;
    for (std::size_t i = 0; i < text.size();) {
        auto lead = static_cast<unsigned char>(text[i]);
        std::size_t follow = lead < 0x80   ? 0
                             : lead < 0xC2 ? kBroken
                             : lead < 0xE0 ? 1
                             : lead < 0xF0 ? 2
                             : lead < 0xF5 ? 3
                                           : kBroken;
        if (follow == kBroken || text.size() - i <= follow) return false;
        for (std::size_t k = 1; k <= follow; ++k)
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80) return false;
        i += follow + 1;
    }
    return true;
}

// `count` blanks from `column`: each vertical that stands among them begins a span of blanks whose
// left border draws it, up to the next vertical or the blanks' end.
void appendBlanks(std::string& out, int column, int count, const std::vector<int>& verticals) {
    int end = column + count;
    auto v = std::lower_bound(verticals.begin(), verticals.end(), column);
    int at = column;
    for (; v != verticals.end() && *v < end; ++v) {
        out.append(static_cast<std::size_t>(*v - at), ' ');
        at = *v;
        int next = v + 1 != verticals.end() && *(v + 1) < end ? *(v + 1) : end;
        out += "<span class=\"" + std::string(kConnectorClass) + "\">";
        out.append(static_cast<std::size_t>(next - at), ' ');
        out += "</span>";
        at = next;
    }
    out.append(static_cast<std::size_t>(end - at), ' ');
}

}  // namespace

std::string sitePathText(std::string_view path) {
    if (!isUtf8(path)) return siteText(path);
    std::string out;
    for (char c : path) {
        auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7F || c == '<' || c == '>' || c == '&' || c == '"' || c == '\'') {
            out += "&#" + std::to_string(byte < 0x20 || byte == 0x7F ? 0xFFFD : byte) + ";";
        } else {
            out += c;
        }
    }
    return out;
}

std::string siteLine(const std::vector<ShownToken>& tokens, std::int32_t lineNo, int numberWidth,
                     const std::vector<TokenLink>& links, const std::vector<int>& verticals) {
    std::string number = std::to_string(lineNo);
    std::string out = "<span class=\"LineNo\" id=\"L" + number + "\">";
    out.append(static_cast<std::size_t>(std::max(0, numberWidth - static_cast<int>(number.size()))), ' ');
    out += number + "</span> ";
    auto link = links.begin();
    // Verticals cross only the blanks ahead of the line's own text; `column` is counted until then.
    int column = verticals.empty() ? -1 : 0;
    auto blanks = [&](int count) {
        if (column < 0) return out.append(static_cast<std::size_t>(count), ' '), void();
        appendBlanks(out, column, count, verticals);
        column += count;
    };
    for (const ShownToken& token : tokens) {
        blanks(std::max(0, token.spaces));
        while (link != links.end() && link->index < token.index) ++link;
        const char* cls = htmlClassName(token.element);
        bool linked = token.index >= 0 && link != links.end() && link->index == token.index;
        if (linked) out += "<a class=\"" + std::string(cls) + "\" href=\"" + siteText(link->href) + "\">";
        else out += "<span class=\"" + std::string(cls) + "\">";
        out += siteText(token.text);
        out += linked ? "</a>" : "</span>";
        if (!token.blankAfter) column = -1;  // the line's own text has begun
        else if (column >= 0) column += static_cast<int>(token.text.size());
        if (token.blankAfter) blanks(1);
    }
    return out;
}

}  // namespace hlyd
