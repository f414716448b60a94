#include "platform/line_reader.h"

#include <algorithm>
#include <bit>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace hlyd {

LineReader::LineReader(std::size_t longestLine, std::size_t chunk) : longest_(longestLine), chunk_(chunk) {}

int LineReader::open(const std::string& path) {
    close();
    if (int e = file_.open(path); e != 0) return e;
    size_ = file_.size();
    // Room for one chunk beside the longest line kept: the buffer never grows. A file smaller than
    // a chunk needs no more than its size (it is read on in such steps should it grow): each page
    // of the buffer is cleared, and a small file's run is mostly its start.
    std::size_t chunk = static_cast<std::size_t>(std::min<std::uint64_t>(chunk_, size_ + 1));
    buffer_.resize(chunk + longest_ + 2);
    open_ = true;
    fill();
    return error_;
}

void LineReader::openText(std::string content) {
    close();
    buffer_ = std::move(content);
    end_ = buffer_.size();
    size_ = end_;
    eof_ = true;
    open_ = true;
}

void LineReader::close() {
    file_.close();
    buffer_.clear();
    buffer_.shrink_to_fit();
    line_.clear();
    line_.shrink_to_fit();
    start_ = end_ = 0;
    consumed_ = size_ = 0;
    eof_ = open_ = cut_ = skipTail_ = false;
    error_ = 0;
}

bool LineReader::fill() {
    if (eof_ || !file_.isOpen()) return false;
    if (start_ > 0) {
        std::memmove(buffer_.data(), buffer_.data() + start_, end_ - start_);
        consumed_ += start_;
        end_ -= start_;
        start_ = 0;
    }
    long got = file_.read(buffer_.data() + end_, buffer_.size() - end_);
    if (got <= 0) {
        if (got < 0) error_ = file_.error();
        eof_ = true;
        return false;
    }
    end_ += static_cast<std::size_t>(got);
    return true;
}

namespace {

constexpr std::uint64_t kEveryByte = 0x0101010101010101u;

// Whether one of the eight bytes of `word` is `c`: a byte that matches leaves a zero byte behind,
// whose borrow sets its high bit.
bool holdsByte(std::uint64_t word, char c) {
    std::uint64_t x = word ^ (kEveryByte * static_cast<unsigned char>(c));
    return ((x - kEveryByte) & ~x & (kEveryByte << 7)) != 0;
}

}  // namespace

// Every byte of the file passes here: sixteen at a time (eight without SSE2) are tested for a
// line end, and only the last few of the buffer are walked byte by byte.
std::size_t LineReader::findLineEnd(std::size_t from) const {
    const char* base = buffer_.data();
#if defined(__SSE2__)
    const __m128i lf = _mm_set1_epi8('\n'), cr = _mm_set1_epi8('\r');
    for (; from + 16 <= end_; from += 16) {
        __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(base + from));
        auto ends = static_cast<unsigned>(
                _mm_movemask_epi8(_mm_or_si128(_mm_cmpeq_epi8(bytes, lf), _mm_cmpeq_epi8(bytes, cr))));
        if (ends != 0) return from + static_cast<std::size_t>(std::countr_zero(ends));
    }
#endif
    for (std::uint64_t word; from + 8 <= end_; from += 8) {
        std::memcpy(&word, base + from, 8);
        if (holdsByte(word, '\n') || holdsByte(word, '\r')) break;
    }
    while (from < end_ && base[from] != '\n' && base[from] != '\r') ++from;
    return from;
}

// Takes the line end at `at` off the buffer; false when a CR is the last byte read and more
// must be read to see whether an LF follows it.
bool LineReader::passLineEnd(std::size_t at) {
    if (buffer_[at] == '\r' && at + 1 == end_ && !eof_) {
        start_ = at;
        fill();
        return false;
    }
    start_ = at + 1;
    if (buffer_[at] == '\r' && start_ < end_ && buffer_[start_] == '\n') ++start_;
    return true;
}

void LineReader::skipRestOfLine() {
    for (;;) {
        std::size_t at = findLineEnd(start_);
        if (at < end_) {
            if (!passLineEnd(at)) continue;
            break;
        }
        start_ = end_;
        if (!fill()) break;
    }
    skipTail_ = false;
}

bool LineReader::atEnd() {
    if (skipTail_) skipRestOfLine();
    return start_ >= end_ && !fill();
}

// Hands out the first bytes of a line too long to keep; the rest, from `resumeAt`, is skipped
// by the next read.
std::string_view LineReader::cutLine(std::size_t resumeAt) {
    cut_ = skipTail_ = true;
    line_.assign(buffer_.data() + start_, longest_ + 1);
    start_ = resumeAt;
    return line_;
}

std::string_view LineReader::readLine() {
    cut_ = false;
    if (skipTail_) skipRestOfLine();
    for (;;) {
        std::size_t at = findLineEnd(start_);
        if (at < end_) {
            if (at - start_ > longest_) return cutLine(at);
            // The CR may be the last byte read: a fill moves the line, so it is looked for again.
            if (buffer_[at] == '\r' && at + 1 == end_ && !eof_) {
                fill();
                continue;
            }
            // A whole line in the buffer is handed out in place: the copy is kept for the cut and
            // last lines, whose bytes a later fill would move.
            std::string_view line(buffer_.data() + start_, at - start_);
            passLineEnd(at);
            return line;
        }
        if (end_ - start_ > longest_) return cutLine(start_ + longest_ + 1);
        if (!fill()) {
            line_.assign(buffer_.data() + start_, end_ - start_);
            start_ = end_;
            return line_;
        }
    }
}

}  // namespace hlyd
