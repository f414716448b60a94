#include "analysis/tokenizer.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "base/c_debug.h"

namespace hlyd {

namespace {

using namespace std::string_view_literals;  // the sets hold a NUL, which a C string would end at

struct CharSets {
    bool blank[256] = {};
    bool dateStop[256] = {};
    bool numberEnd[256] = {};
    bool wordEnd[256] = {};
    CharSets() {
        auto set = [](bool* table, std::string_view chars) {
            for (char c : chars) table[static_cast<unsigned char>(c)] = true;
        };
        set(blank, " \t");
        set(dateStop, "\t\0#'\""sv);
        set(numberEnd, " \t\0()':,\"=<>\\/*[];"sv);
        set(wordEnd, " \t\0()':,.\"=<>\\/*[];+-!"sv);
    }
};
const CharSets kSets;

inline bool isDigit(char c) { return c >= '0' && c <= '9'; }
inline bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

void blankToken(WorkToken& t) {
    static_cast<TokenFields&>(t) = TokenFields{};
    t.Column = 0;
    t.setView({});
    t.LeadingSpace = {};
}

// The line with one NUL after it, walked by position; Rest is [pos, len], empty once pos > len.
class LineCutter {
public:
    LineCutter(std::string_view line, WorkTokenArray& work) : src_(line), len_(line.size()), work_(work) {
        blankToken(work_[1]);
    }

    void cut(std::int32_t& count);

private:
    char at(std::size_t i) const { return i < len_ ? src_[i] : '\0'; }
    // Words are most of a line's bytes: four are tested for each check of the line's end.
    std::size_t scanUntil(std::size_t from, const bool* stopSet) const {
        const auto* bytes = reinterpret_cast<const unsigned char*>(src_.data());
        for (; from + 4 <= len_; from += 4) {
            if (stopSet[bytes[from]]) return from;
            if (stopSet[bytes[from + 1]]) return from + 1;
            if (stopSet[bytes[from + 2]]) return from + 2;
            if (stopSet[bytes[from + 3]]) return from + 3;
        }
        while (from < len_ && !stopSet[bytes[from]]) ++from;
        return from;  // len_ stands for the final NUL, which is in every stop set
    }
    // Indentation is most of a line's blanks, and spaces alone: eight of them are passed at once.
    std::size_t skipBlanks(std::size_t from) const {
        constexpr std::uint64_t kEightSpaces = 0x2020202020202020u;
        for (std::uint64_t word; from + 8 <= len_; from += 8) {
            std::memcpy(&word, src_.data() + from, 8);
            if (word != kEightSpaces) break;
        }
        while (from < len_ && kSets.blank[static_cast<unsigned char>(src_[from])]) ++from;
        return from;
    }
    // The line from `from` to `end`, both within it: the callers have checked what substr would.
    std::string_view piece(std::size_t from, std::size_t end) const { return {src_.data() + from, end - from}; }
    WorkToken& building() { return work_[index_ + 1]; }
    void store() {
        ++index_;
        blankToken(work_[index_ + 1]);
    }
    std::size_t restLength() const { return pos_ <= len_ ? len_ - pos_ + 1 : 0; }
    // The delimiter just passed, which every caller has read from the line.
    std::string_view delimiterBehind() const { return src_.substr(pos_ - 1, 1); }
    void cutComment(WorkToken& t);
    void cutString();
    char takeWord();
    char extendNumber(char delim);
    char dateOrHash(char delim);
    void cutDelimiter(char delim);

    std::string_view src_;
    std::size_t len_;
    std::size_t pos_ = 0;
    std::int32_t p_ = 0;  // the running column arithmetic; approximate by design
    std::int32_t index_ = 0;
    WorkToken word_;  // only its text is used
    WorkTokenArray& work_;
};

// Text is the quote and the rest of the line; a final "_" continues the comment.
void LineCutter::cutComment(WorkToken& t) {
    t.setView(delimiterBehind());
    if (restLength() >= 2) t.extend(src_.substr(pos_, len_ - pos_));
    pos_ = len_;
    if (!t.Text.empty() && t.Text.back() == '_') {
        t.Continued = 1;
        t.dropLast();
    }
}

char LineCutter::takeWord() {
    std::size_t end = scanUntil(pos_, kSets.wordEnd);
    word_.setView(piece(pos_, end));
    char delim = at(end);
    p_ += static_cast<std::int32_t>(end - pos_ + 1);
    pos_ = end + 1;
    if (delim == '\0' && pos_ <= len_) word_.extend(src_.substr(end, 1));  // a NUL of the line
    return delim;
}

char LineCutter::extendNumber(char /*delim*/) {
    --pos_;  // the delimiter goes back to the front
    std::size_t end = scanUntil(pos_, kSets.numberEnd);
    word_.extend(src_.substr(pos_, end - pos_));
    p_ += static_cast<std::int32_t>(end - pos_ + 1) + 1;
    pos_ = end + 1;
    return at(end);
}

char LineCutter::dateOrHash(char delim) {
    std::size_t stop = pos_ <= len_ ? scanUntil(pos_, kSets.dateStop) : pos_;
    if (stop <= len_ && at(stop) == '#') {
        word_.extend(delimiterBehind());  // after a NUL of the line, taken twice: composed
        word_.extend(src_.substr(pos_, stop - pos_ + 1));
        p_ += static_cast<std::int32_t>(stop - pos_ + 1) + 1;
        pos_ = stop + 1;
        return '\0';
    }
    WorkToken& hash = building();
    hash.setView(word_.Text.substr(0, 1));  // word_ is still a view of the line here
    std::int32_t column = hash.Column;
    store();
    building().Column = column + 1;
    word_.dropFirst();
    return delim;
}

void LineCutter::cutString() {
    WorkToken& t = building();
    t.Column = p_;
    t.setView(delimiterBehind());
    for (;;) {
        std::size_t end = pos_;
        while (end < len_ && src_[end] != '"' && src_[end] != '\0') ++end;
        t.extend(src_.substr(pos_, end - pos_));
        if (end < len_) t.extend(src_.substr(end, 1));
        else t.compose(std::string_view("\0", 1));  // the line's end stands in the text
        std::int32_t j = static_cast<std::int32_t>(end - pos_ + 1);
        p_ += j + j + 1;
        pos_ = end + 1;
        if (pos_ < len_ && src_[pos_] == '"') {
            t.extend(src_.substr(pos_, 1));
            ++pos_;
            ++p_;
            continue;
        }
        break;
    }
    if (t.Text.back() != '"') t.compose("\"");
    store();
}

void LineCutter::cutDelimiter(char delim) {
    WorkToken& t = building();
    switch (delim) {
        case '\'':
            t.Column = p_;
            cutComment(t);
            store();
            return;
        case '"': cutString(); return;
        case '+':
        case '-':
        case '.':
            t.Column = p_;
            t.setView(delimiterBehind());
            if (pos_ < len_ && isDigit(src_[pos_])) {
                std::size_t end = scanUntil(pos_, kSets.numberEnd);
                t.extend(src_.substr(pos_, end - pos_));
                p_ += static_cast<std::int32_t>(end - pos_ + 1);
                pos_ = end;
            }
            store();
            return;
        case '<':
        case '>':
        case ':':
            t.Column = p_;
            t.setView(delimiterBehind());
            if (pos_ < len_ && (src_[pos_] == '=' || (delim != ':' && src_[pos_] == '>'))) {
                t.extend(src_.substr(pos_, 1));
                ++pos_;
                ++p_;
            }
            store();
            return;
        case '\0':
            if (t.Text.empty() && !t.LeadingSpace.empty()) {
                t.setView(t.LeadingSpace);
                t.LeadingSpace = {};
                t.set(CommentishDetail::Empty);
                store();
            }
            return;
        case ' ':
        case '\t':
            --pos_;
            --p_;
            return;
        default:
            t.Column = p_;
            t.setView(delimiterBehind());
            store();
    }
}

void LineCutter::cut(std::int32_t& count) {
    while (pos_ <= len_) {
        if (index_ >= kWorkTokensUBound - 3) {
            theDebug().BabStatus = kStatusReadingStopped;
            break;
        }
        WorkToken& t = building();
        std::size_t firstNonBlank = skipBlanks(pos_);
        t.LeadingSpace = piece(pos_, firstNonBlank);
        t.Column = p_ + static_cast<std::int32_t>(firstNonBlank - pos_) + 1;
        pos_ = firstNonBlank;

        char delim = takeWord();
        std::string_view word = word_.Text;
        if (!word.empty()) {
            char first = word[0];
            if (isDigit(first) || first == '&') {
                delim = extendNumber(delim);
            } else if (first == '#') {
                delim = dateOrHash(delim);
            } else if (word.size() == 3 && (word[0] | 0x20) == 'r' && (word[1] | 0x20) == 'e' &&
                       (word[2] | 0x20) == 'm') {
                WorkToken& rem = building();
                if (restLength() >= 2) {
                    // The blank after "Rem" stands for whatever parted it from the text.
                    if (src_[pos_ - 1] == ' ') word_.extend(delimiterBehind());
                    else word_.compose(" ");
                    word_.extend(src_.substr(pos_, len_ - pos_));
                }
                delim = '\0';
                pos_ = len_;
                if (word_.Text.back() == '_') {
                    rem.Continued = 1;
                    word_.dropLast();
                }
                rem.set(CommentishDetail::Comment);
            }
            if (!word_.Text.empty()) {
                building().takeText(word_);
                store();
            }
        }
        cutDelimiter(delim);
    }
    if (index_ == 0) {
        blankToken(work_[1]);
        index_ = 1;
    }
    work_[index_].Flags.set(TokenFlag::LineEnd);
    count = index_;
}

}  // namespace

void ExtractTokens(std::string_view sourceRec, WorkTokenArray& workTokens, std::int32_t& workTokenCount) {
    // Every token but the blank one after the last takes a character of the line or its NUL;
    // twice as many leaves room for any rule that splits a character off.
    workTokens.prepare(static_cast<std::int32_t>(std::min<std::size_t>(2 * sourceRec.size() + 4, kWorkTokensUBound)));
    LineCutter(sourceRec, workTokens).cut(workTokenCount);
}

}  // namespace hlyd
