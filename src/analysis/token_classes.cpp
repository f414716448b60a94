// Classifying the raw tokens of one line: literals, operators, comments, labels, keywords, and the
// Type and Enum block state that the statements of the line will see.
#include "analysis/tokenizer.h"

#include <string_view>

namespace hlyd {

namespace {

inline bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

// A text composed in Own moves with it: a short one lives inside the string, so its view must follow.
void swapTokens(WorkToken& a, WorkToken& b) {
    std::swap(a, b);
    if (a.TextOwned) a.Text = a.Own;
    if (b.TextOwned) b.Text = b.Own;
}

// A token is cut with its class blank, which is a keyword's number: cutting classifies only a Rem
// comment and the blanks that end a line, and a token still blank is for the classifier to decide.
bool unclassified(const WorkToken& t) { return t.Class == TokenClass::Keyword; }

class LineClassifier {
public:
    LineClassifier(WorkTokenArray& work, std::int32_t count) : w_(work), n_(count), m_(basiclan()) {}
    void classify();
    std::int32_t compact();

private:
    void classifyOne(std::int32_t k);
    void typeSuffix(std::int32_t k);
    void labelColon(std::int32_t k);
    void continuation(std::int32_t k);
    void keyword(std::int32_t k);
    void trackBlocks(std::int32_t k, std::string_view word);
    bool secondTokenIs(const char* upperWord) const { return n_ >= 2 && equalsUpper(w_[2].Text, upperWord); }

    WorkTokenArray& w_;
    std::int32_t n_;
    BasiclanModule& m_;
    bool labelSeen_ = false;
};

void LineClassifier::classify() {
    for (std::int32_t k = 1; k <= n_; ++k) classifyOne(k);
}

void LineClassifier::classifyOne(std::int32_t k) {
    WorkToken& t = w_[k];
    if (t.Text.empty()) {
        if (k == 1) t.set(CommentishDetail::Empty);
        return;
    }
    char c = t.Text[0];
    if (isLetter(c)) {
        if (unclassified(t)) keyword(k);
    } else if (isDigit(c)) {
        if (k == 1) t.set(CommentishDetail::Label);
        else t.set(LiteralDetail::Number);
    } else {
        switch (c) {
            case '"': t.set(LiteralDetail::String); break;
            case '.':
            case '+':
            case '-':
            case '&':
                if (t.Text.size() > 1) t.set(LiteralDetail::Number);
                else t.set(OperatorDetail::Operator);
                break;
            case '<':
            case '>': t.set(OperatorDetail::Operator); break;
            case '!':
                t.set(OperatorDetail::Operator);
                typeSuffix(k);
                break;
            case '\'': t.set(CommentishDetail::Comment); break;
            case '#':
                if (t.Text.size() == 1) t.set(OperatorDetail::Operator);
                else t.set(LiteralDetail::Date);
                break;
            case ':': labelColon(k); break;
            case '_':
            case '\\': continuation(k); break;
            default:
                if (unclassified(t)) t.set(OperatorDetail::Operator);
        }
    }
}

// "x!" written without blanks is a Single-typed name, not the bang operator.
void LineClassifier::typeSuffix(std::int32_t k) {
    WorkToken& bang = w_[k];
    if (k == 1 || k == n_ || !bang.LeadingSpace.empty()) return;
    std::string_view next = w_[k + 1].Text;
    unsigned char nextFirst = next.empty() ? 0 : upperChar(static_cast<unsigned char>(next[0]));
    if (nextFirst >= 'A' && nextFirst <= 'Z') return;
    WorkToken& before = w_[k - 1];
    before.extend(bang.Text);
    before.Flags.add(bang.Flags);
    bang.setView({});
}

void LineClassifier::labelColon(std::int32_t k) {
    WorkToken& t = w_[k];
    if (m_.InFormHeader) {
        t.set(OperatorDetail::Operator);
        return;
    }
    if (k == 1) return;
    WorkToken& before = w_[k - 1];
    bool nameBefore = before.Class == TokenClass::Identifier || before.is(LiteralDetail::Number);
    if (nameBefore && !labelSeen_ && (k == 2 || w_[k - 2].Text == ":")) {
        t.set(ColonDetail::LabelColon);
        before.set(CommentishDetail::Label);
        labelSeen_ = true;
        return;
    }
    labelSeen_ = false;
    if (t.Text == ":=") t.set(OperatorDetail::NamedArg);
    else t.set(ColonDetail::Separator);
}

// A lone "_" or "\" at the very end of a line continues it on the next.
void LineClassifier::continuation(std::int32_t k) {
    WorkToken& t = w_[k];
    if (t.Text.size() == 1 && k == n_ && k >= 2) {
        w_[k - 1].Continued += 1;
        t.setView({});
        return;
    }
    t.set(OperatorDetail::Operator);
}

void LineClassifier::keyword(std::int32_t k) {
    WorkToken& t = w_[k];
    bool lookup = k > 1 || !m_.InType;
    if (!lookup && k == 1 && n_ >= 2 && (equalsUpper(t.Text, "PRIVATE") || equalsUpper(t.Text, "END")))
        lookup = secondTokenIs("TYPE") || secondTokenIs("ENUM");
    // A form's property is named before its "=": `Left` and `Height` alike are property names
    // there, whether or not the language also has the word.
    bool propertyName = m_.InFormHeader && k == 1 && n_ >= 2 && w_[2].Text == "=";
    std::int32_t index = 0;
    if (lookup && !propertyName) SearchForKeyWord(t.Text, index);
    if (index == 0) {
        t.set(IdentifierDetail::Name);
        return;
    }
    t.pKeyWord = static_cast<std::int16_t>(index);
    t.Flags.set(TokenFlag::KeyWordSeen);
    t.set(KeywordDetail::None);
    trackBlocks(k, m_.DialectKeyWords[index].Word);
}

// Only "Type", "Enum" and "End" move the state; the words before them are looked at only then,
// not for each of the keywords of a line.
void LineClassifier::trackBlocks(std::int32_t k, std::string_view word) {
    if (word != "TYPE" && word != "ENUM" && word != "END") return;
    bool first = k == 1 || equalsUpper(w_[1].Text, "PRIVATE") || equalsUpper(w_[1].Text, "PUBLIC");
    bool endLine = word == "END" && k == 1 && n_ >= 2;
    if (word == "TYPE" && !m_.InProc && !m_.InFormHeader && first) m_.InType = true;
    else if (endLine && secondTokenIs("TYPE")) m_.InType = false;
    if (word == "ENUM" && first) m_.InEnum = true;
    else if (endLine && secondTokenIs("ENUM")) m_.InEnum = false;
}

std::int32_t LineClassifier::compact() {
    std::int32_t kept = 1;
    for (std::int32_t k = 2; k <= n_; ++k) {
        if (w_[k].Text.empty()) continue;
        ++kept;
        if (kept != k) swapTokens(w_[kept], w_[k]);
    }
    return kept;
}

}  // namespace

void AnalyzeTokens(WorkTokenArray& workTokens, std::int32_t& workTokenCount) {
    LineClassifier line(workTokens, workTokenCount);
    line.classify();
    workTokenCount = line.compact();
}

}  // namespace hlyd
