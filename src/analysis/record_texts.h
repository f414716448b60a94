#pragma once
// The lines of a file as they stand in it, one for each record: what a reader copies out of the
// view and what a search looks through. The tokens alone cannot give them back byte for byte (a
// line continuation's "_" is dropped, an unfinished string gains its quote), and a search of the
// token texts would miss words that span their blanks. The lines share one buffer, each ended by
// a LF, which no line holds (a line ends at CR LF, LF or CR), so that one pass searches them all.
// The tokens' texts are views into the lines kept here: a view handed out stays valid, its bytes
// unchanged, until clear(), however the buffer grows.
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace hlyd {

class RecordTexts {
public:
    // The text of `record`; records come in order, one skipped (a reader's marker) stays empty, and
    // one given again replaces it and those after it. Returns the line as kept.
    std::string_view set(std::int32_t record, std::string_view line);
    // Every view handed out so far is let go.
    void clear();
    // Room for the lines of a file of `fileBytes`, which never need more: the buffer is not
    // moved while it fills, and holds no spare half of itself at the end.
    void reserve(std::size_t fileBytes) {
        if (!buffer_.empty()) return;
        buffer_.reserve(fileBytes + 1);
        starts_.reserve(fileBytes / kBytesPerLine + 2);
    }

    std::int32_t count() const { return static_cast<std::int32_t>(starts_.size()) - 1; }
    // Empty for a record that has none.
    std::string_view line(std::int32_t record) const;
    // Every line followed by a LF, record 1 first.
    const std::string& buffer() const { return buffer_; }
    std::size_t start(std::int32_t record) const { return starts_.at(static_cast<std::size_t>(record)); }
    // The record whose line (or the LF after it) holds `offset` of the buffer.
    std::int32_t recordAt(std::size_t offset) const;

private:
    // Fewer than in real code, whose lines are longer: the starts' room is rarely outgrown.
    static constexpr std::size_t kBytesPerLine = 24;
    void makeRoom(std::size_t index, std::size_t lineBytes);
    void moveToFreshBuffer(std::size_t keptBytes, std::size_t neededBytes);

    std::string buffer_;
    // Buffers the lines outgrew, or whose last lines were replaced, kept whole: views of them were
    // handed out. Only a file whose size was not known beforehand, or that grew while it was read,
    // leaves one here.
    std::vector<std::string> retired_;
    // starts_[r]: where record r begins; element 0 unused. A file's lines are never 4 GB: the reader
    // stops at half a million tokens, and a line is at most a record's length.
    std::vector<std::uint32_t> starts_{0};
};

}  // namespace hlyd
