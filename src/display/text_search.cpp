#include "display/text_search.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <string>

#include "platform/char_case.h"

namespace hlyd {

namespace {

constexpr std::size_t kNone = std::string::npos;

struct FoldedHash {
    bool fold;
    std::size_t operator()(char c) const {
        auto b = static_cast<unsigned char>(c);
        return fold ? upperChar(b) : b;
    }
};

struct FoldedEqual {
    bool fold;
    bool operator()(char a, char b) const {
        auto x = static_cast<unsigned char>(a), y = static_cast<unsigned char>(b);
        return fold ? upperChar(x) == upperChar(y) : x == y;
    }
};

// One search of one buffer: the searcher is made once for the query, then walked over the buffer
// in either direction. A hit that is no whole word, or lies in a record not searched, is passed
// and the search goes on.
class BufferSearch {
public:
    BufferSearch(const RecordTexts& texts, std::string_view query, const SearchOptions& options,
                 const RecordFilter& searched)
        : texts_(texts),
          buffer_(texts.buffer()),
          query_(query),
          reversed_(query.rbegin(), query.rend()),
          options_(options),
          searched_(searched),
          ahead_(query_.begin(), query_.end(), FoldedHash{!options.matchCase}, FoldedEqual{!options.matchCase}),
          behind_(reversed_.begin(), reversed_.end(), FoldedHash{!options.matchCase}, FoldedEqual{!options.matchCase}) {
    }

    // The first acceptable hit starting in [from, to).
    std::size_t next(std::size_t from, std::size_t to) const {
        to = std::min(to, buffer_.size());
        while (from < to) {
            auto end = buffer_.begin() + static_cast<std::ptrdiff_t>(std::min(buffer_.size(), to + query_.size() - 1));
            auto found = std::search(buffer_.begin() + static_cast<std::ptrdiff_t>(from), end, ahead_);
            if (found == end) return kNone;
            auto at = static_cast<std::size_t>(found - buffer_.begin());
            if (acceptable(at)) return at;
            from = skipFrom(at, true);
        }
        return kNone;
    }

    // The last acceptable hit ending at or before `to` and starting at `from` or after it.
    std::size_t previous(std::size_t from, std::size_t to) const {
        to = std::min(to, buffer_.size());
        while (to >= from + query_.size()) {
            auto rbegin = buffer_.rbegin() + static_cast<std::ptrdiff_t>(buffer_.size() - to);
            auto rend = buffer_.rbegin() + static_cast<std::ptrdiff_t>(buffer_.size() - from);
            auto found = std::search(rbegin, rend, behind_);
            if (found == rend) return kNone;
            std::size_t at = buffer_.size() - static_cast<std::size_t>(found - buffer_.rbegin()) - query_.size();
            if (acceptable(at)) return at;
            to = skipFrom(at, false);
        }
        return kNone;
    }

    TextHit hitAt(std::size_t at) const {
        std::int32_t record = texts_.recordAt(at);
        return {record, static_cast<std::int32_t>(at - texts_.start(record)), static_cast<std::int32_t>(query_.size())};
    }

private:
    bool acceptable(std::size_t at) const {
        if (options_.wholeWord && !wholeWordAt(at)) return false;
        return !searched_ || searched_(texts_.recordAt(at));
    }
    bool wholeWordAt(std::size_t at) const {
        bool before = at > 0 && wordByte(static_cast<unsigned char>(buffer_[at - 1])) &&
                      wordByte(static_cast<unsigned char>(query_.front()));
        std::size_t end = at + query_.size();
        bool after = end < buffer_.size() && wordByte(static_cast<unsigned char>(buffer_[end])) &&
                     wordByte(static_cast<unsigned char>(query_.back()));
        return !before && !after;
    }
    // Past a hit refused: a record not searched is passed whole, else the search moves one byte
    // on. Forward it answers the next start, backward the next end.
    std::size_t skipFrom(std::size_t at, bool forward) const {
        std::int32_t record = texts_.recordAt(at);
        bool recordRefused = searched_ && !searched_(record);
        if (forward) return recordRefused && record < texts_.count() ? texts_.start(record + 1) : at + 1;
        if (recordRefused) return texts_.start(record);
        return at + query_.size() - 1;
    }

    const RecordTexts& texts_;
    const std::string& buffer_;
    std::string_view query_;
    std::string reversed_;
    const SearchOptions& options_;
    const RecordFilter& searched_;
    std::boyer_moore_horspool_searcher<std::string_view::const_iterator, FoldedHash, FoldedEqual> ahead_;
    std::boyer_moore_horspool_searcher<std::string::const_iterator, FoldedHash, FoldedEqual> behind_;
};

std::size_t offsetOf(const RecordTexts& texts, TextPlace place) {
    if (place.record < 1) return 0;
    if (place.record > texts.count()) return texts.buffer().size();
    std::size_t lineLength = texts.line(place.record).size();
    return texts.start(place.record) + std::min(static_cast<std::size_t>(std::max(0, place.column)), lineLength);
}

}  // namespace

bool wordByte(unsigned char c) {
    if ((c >= '0' && c <= '9') || c == '_') return true;
    if ((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z')) return true;
    // The letters of Windows-1252 above ASCII, without the multiplication and division signs.
    if (c >= 0xC0) return c != 0xD7 && c != 0xF7;
    return c == 0x8A || c == 0x8C || c == 0x8E || c == 0x9A || c == 0x9C || c == 0x9E || c == 0x9F;
}

FindOutcome findFrom(const RecordTexts& texts, std::string_view query, const SearchOptions& options, TextPlace from,
                     bool forward, const RecordFilter& searched) {
    FindOutcome outcome;
    if (query.empty() || query.find('\n') != std::string_view::npos) return outcome;
    BufferSearch search(texts, query, options, searched);
    std::size_t size = texts.buffer().size();
    std::size_t at = offsetOf(texts, from);
    std::size_t hit = forward ? search.next(at, size) : search.previous(0, at);
    if (hit == kNone) {
        outcome.wrapped = true;
        hit = forward ? search.next(0, at) : search.previous(at, size);
    }
    if (hit == kNone) return FindOutcome{};
    outcome.found = true;
    outcome.hit = search.hitAt(hit);
    return outcome;
}

std::vector<TextHit> findAll(const RecordTexts& texts, std::string_view query, const SearchOptions& options,
                             const RecordFilter& searched) {
    std::vector<TextHit> hits;
    if (query.empty() || query.find('\n') != std::string_view::npos) return hits;
    BufferSearch search(texts, query, options, searched);
    std::size_t size = texts.buffer().size();
    for (std::size_t at = search.next(0, size); at != kNone; at = search.next(at + query.size(), size))
        hits.push_back(search.hitAt(at));
    return hits;
}

}  // namespace hlyd
