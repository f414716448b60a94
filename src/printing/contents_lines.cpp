#include "printing/contents_lines.h"

namespace hlyd {

namespace {

// No paper holds a line this long at a readable size: a longer rest is not measured whole.
constexpr std::size_t kLongestLine = 512;

std::size_t firstNonBlank(const std::string& text, std::size_t from) {
    std::size_t at = text.find_first_not_of(' ', from);
    return at == std::string::npos ? text.size() : at;
}

// The longest start of `rest` that ends before a blank and fits beside `lead`; 0 when even the
// first word is too wide.
std::size_t breakAtBlank(const std::string& lead, const std::string& rest, float room, const MeasureText& width) {
    std::size_t cut = 0;
    for (std::size_t b = rest.find(' '); b != std::string::npos; b = rest.find(' ', b + 1)) {
        if (b == 0) continue;
        if (width(lead + rest.substr(0, b)) > room) break;
        cut = b;
    }
    return cut;
}

// Inside a word too wide for the line: as many characters as fit, at least one.
std::size_t breakInWord(const std::string& lead, const std::string& rest, float room, const MeasureText& width) {
    std::size_t cut = 1;
    while (cut < rest.size() && width(lead + rest.substr(0, cut + 1)) <= room) ++cut;
    return cut;
}

// The longest length n (0..most) for which fits(n) holds, for a test that holds up to some n.
template <typename Fits>
std::size_t longestThatFits(std::size_t most, Fits fits) {
    std::size_t low = 0, high = most;
    while (low < high) {
        std::size_t mid = (low + high + 1) / 2;
        if (fits(mid)) low = mid;
        else high = mid - 1;
    }
    return low;
}

}  // namespace

std::vector<std::string> wrapAtBlanks(const std::string& text, std::size_t firstIndent, std::size_t nextIndent,
                                      float room, const MeasureText& width) {
    std::vector<std::string> lines;
    std::string rest = text.substr(firstNonBlank(text, 0));
    std::string lead(firstIndent, ' ');
    while (!rest.empty() && (rest.size() > kLongestLine || width(lead + rest) > room)) {
        std::size_t cut = breakAtBlank(lead, rest, room, width);
        if (cut == 0) cut = breakInWord(lead, rest, room, width);
        lines.push_back(lead + rest.substr(0, cut));
        rest.erase(0, firstNonBlank(rest, cut));
        lead.assign(nextIndent, ' ');
    }
    if (!rest.empty() || lines.empty()) lines.push_back(lead + rest);
    return lines;
}

std::string shortenPathToWidth(const std::string& path, float room, const MeasureText& width) {
    if (width(path) <= room) return path;
    std::size_t slash = path.find_last_of("/\\");
    std::size_t nameAt = slash == std::string::npos ? 0 : slash;
    std::string name = path.substr(nameAt);
    std::string head = path.substr(0, nameAt);
    const std::string dots = "...";
    if (width(dots + name) <= room) {
        std::size_t kept = longestThatFits(
                head.size(), [&](std::size_t n) { return width(head.substr(0, n) + dots + name) <= room; });
        return head.substr(0, kept) + dots + name;
    }
    // The name's end (its extension) is worth as much as its start.
    if (nameAt < path.size() && (name[0] == '/' || name[0] == '\\')) name.erase(0, 1);
    std::size_t kept = longestThatFits(name.size(), [&](std::size_t n) {
        return width(name.substr(0, (n + 1) / 2) + dots + name.substr(name.size() - n / 2)) <= room;
    });
    return name.substr(0, (kept + 1) / 2) + dots + name.substr(name.size() - kept / 2);
}

}  // namespace hlyd
