#include "display/drawn_stretch.h"

#include <algorithm>

#include "display/font_metrics.h"
#include "display/visible_text.h"
#include "platform/surface.h"

namespace hlyd {

std::vector<std::int32_t> tokenColumns(const SourceTables& t, std::int32_t record) {
    std::vector<std::int32_t> columns;
    const Record& r = t.Records[record];
    std::string_view line = t.Texts->line(record);
    std::size_t cursor = 0;
    for (std::int32_t i = r.FirstT; i >= 1 && i <= r.LastT; ++i) {
        const Token& token = t.Tokens[i];
        cursor = std::min(line.size(), cursor + token.LeadingLength);
        std::size_t at = cursor;
        // A token that does not stand right after its blanks (the reader dropped or changed a
        // byte before it) is looked for a little further on.
        if (line.compare(cursor, token.text().size(), token.text()) != 0 && !token.text().empty()) {
            std::size_t found = line.find(token.text(), cursor);
            if (found != std::string_view::npos && found - cursor <= 2) at = found;
        }
        columns.push_back(static_cast<std::int32_t>(at));
        cursor = std::min(line.size(), at + token.text().size());
    }
    return columns;
}

std::size_t sourceBytesOfShown(std::string_view source, std::size_t shown, std::size_t column, std::int32_t tabWidth) {
    std::size_t bytes = 0, characters = 0;
    while (bytes < source.size() && characters < shown) {
        characters += shownLength(static_cast<unsigned char>(source[bytes]), column + characters, tabWidth);
        ++bytes;
    }
    return bytes;
}

std::vector<float> measureEdges(Surface& surface, const std::string& source, std::size_t from, std::size_t length,
                                float x, std::size_t column, std::int32_t tabWidth) {
    std::vector<float> edges;
    edges.reserve(length + 1);
    edges.push_back(x);
    for (std::size_t k = 1; k <= length; ++k)
        edges.push_back(x + surface.textWidth(visibleText(source.substr(from, k), column, tabWidth)));
    return edges;
}

const std::vector<float>& stretchEdges(const DrawnStretch& s) {
    if (!s.edges.empty()) return s.edges;
    Surface* surface = displaySurface();
    auto length = static_cast<std::size_t>(std::max(0, s.length));
    if (s.attributes && surface) {
        setAttributesOn(*surface, const_cast<AttributeRecord&>(*s.attributes));
        std::string line(theSourceTables().Texts->line(s.record));
        s.edges = measureEdges(*surface, line, std::min(line.size(), static_cast<std::size_t>(s.column)), length,
                               s.left, s.shownColumn, s.tabWidth);
        s.edges.resize(length + 1, s.right);
    } else {
        for (std::size_t k = 0; k <= length; ++k)
            s.edges.push_back(s.left + (s.right - s.left) * static_cast<float>(k) /
                                               static_cast<float>(std::max<std::size_t>(1, length)));
    }
    return s.edges;
}

}  // namespace hlyd
