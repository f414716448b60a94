#include "platform/pdf/cff_table.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace hlyd {

namespace {

std::optional<std::uint32_t> readNumber(std::string_view s, std::size_t at, std::size_t size) {
    if (size == 0 || size > 4 || at + size > s.size()) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t k = 0; k < size; ++k) value = value << 8 | static_cast<unsigned char>(s[at + k]);
    return value;
}

// An INDEX at `at`: its first entry, and where the INDEX ends.
struct IndexEntry {
    std::string_view first;
    std::size_t end = 0;
};

std::optional<IndexEntry> readIndex(std::string_view s, std::size_t at) {
    std::optional<std::uint32_t> count = readNumber(s, at, 2);
    if (!count) return std::nullopt;
    if (*count == 0) return IndexEntry{{}, at + 2};
    std::optional<std::uint32_t> offSize = readNumber(s, at + 2, 1);
    if (!offSize) return std::nullopt;
    std::size_t offsets = at + 3;
    std::size_t data = offsets + static_cast<std::size_t>(*count + 1) * *offSize - 1;  // offsets count from 1
    std::optional<std::uint32_t> first = readNumber(s, offsets, *offSize);
    std::optional<std::uint32_t> second = readNumber(s, offsets + *offSize, *offSize);
    std::optional<std::uint32_t> last = readNumber(s, offsets + static_cast<std::size_t>(*count) * *offSize, *offSize);
    if (!first || !second || !last || *first < 1 || *second < *first || *second > *last || data + *last > s.size())
        return std::nullopt;
    return IndexEntry{s.substr(data + *first, *second - *first), data + *last};
}

// Whether a DICT holds the operator ROS (12 30); nullopt when it cannot be read to its end.
std::optional<bool> hasRegistry(std::string_view dict) {
    std::size_t at = 0;
    while (at < dict.size()) {
        auto b0 = static_cast<unsigned char>(dict[at]);
        if (b0 == 12) {
            if (at + 1 >= dict.size()) return std::nullopt;
            if (static_cast<unsigned char>(dict[at + 1]) == 30) return true;
            at += 2;
        } else if (b0 == 28) {
            at += 3;
        } else if (b0 == 29) {
            at += 5;
        } else if (b0 == 30) {  // a real: nibbles up to the one that ends it
            for (++at; at < dict.size() && (static_cast<unsigned char>(dict[at]) & 0x0F) != 0x0F &&
                       (static_cast<unsigned char>(dict[at]) & 0xF0) != 0xF0;)
                ++at;
            ++at;
        } else if (b0 >= 247 && b0 <= 254) {
            at += 2;
        } else {
            ++at;  // an operator, or a number of one byte
        }
    }
    if (at != dict.size()) return std::nullopt;  // the last operand runs past the end
    return false;
}

}  // namespace

bool cffNameKeyed(const std::string& cff) {
    std::string_view s(cff);
    std::optional<std::uint32_t> major = readNumber(s, 0, 1), headerSize = readNumber(s, 2, 1);
    if (!major || *major != 1 || !headerSize) return false;
    std::optional<IndexEntry> names = readIndex(s, *headerSize);
    if (!names) return false;
    std::optional<IndexEntry> topDicts = readIndex(s, names->end);
    if (!topDicts || topDicts->first.empty()) return false;
    std::optional<bool> cid = hasRegistry(topDicts->first);
    return cid.has_value() && !*cid;
}

}  // namespace hlyd
