#pragma once
// Where the texts that the tokenizer composed are kept (a string that gains its closing quote,
// "Rem" and its blank), each after its leading blanks: one store per file, filled in reading order
// and never moved, so that a token holds a view of its text instead of a string of its own. Every
// other text is a view of its line as kept (record_texts.h), and needs no copy at all.
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace hlyd {

class TokenTextStore {
public:
    // A copy of `lead` followed by `text`, which stay put until clear(); the view is of the text.
    std::string_view keepAfter(std::string_view lead, std::string_view text) {
        std::size_t bytes = lead.size() + text.size();
        if (bytes == 0) return {};
        if (bytes > room_) addChunk(bytes);
        char* at = next_;
        if (!lead.empty()) std::memcpy(at, lead.data(), lead.size());
        if (!text.empty()) std::memcpy(at + lead.size(), text.data(), text.size());
        next_ += bytes;
        room_ -= bytes;
        return {at + lead.size(), text.size()};
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
