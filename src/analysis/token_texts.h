#pragma once
// Where the texts of a file's tokens are kept: one store per file, filled in reading order and
// never moved, so that a token holds a view of its text instead of two strings of its own. A large
// module has a quarter of a million tokens: their texts, kept apart, were most of the table, and
// each one long enough to leave the string was a heap block to allocate and, at the end, to free.
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace hlyd {

class TokenTextStore {
public:
    // A copy of `text` that stays put until clear().
    std::string_view keep(std::string_view text) {
        if (text.empty()) return {};
        if (text.size() > room_) addChunk(text.size());
        char* at = next_;
        std::memcpy(at, text.data(), text.size());
        next_ += text.size();
        room_ -= text.size();
        return {at, text.size()};
    }

    // Every view handed out so far is let go.
    void clear();

private:
    static constexpr std::size_t kChunkBytes = std::size_t{64} * 1024;
    void addChunk(std::size_t atLeast);

    std::vector<std::unique_ptr<char[]>> chunks_;
    char* next_ = nullptr;
    std::size_t room_ = 0;
};

}  // namespace hlyd
