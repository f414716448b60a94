#include "xref/member_names.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>

#include "analysis/keywords.h"
#include "analysis/source_model.h"
#include "platform/char_case.h"

namespace hlyd {

namespace {

// A significant word of a statement: a keyword by its upper-case word, a name, or an operator.
struct Word {
    enum Kind : std::uint8_t { kKeyword, kName, kNamedArgument, kOperator, kOther } kind = kOther;
    std::string_view text;  // the keyword's upper-case word, else the token's text
    std::int32_t token = 0;
};

// Into `words`, which keeps its room from one statement to the next.
void wordsOf(const SourceTables& t, const Statement& s, std::vector<Word>& words) {
    words.clear();
    std::int32_t last = s.LastSignificant > 0 ? s.LastSignificant : s.LastToken;
    for (std::int32_t i = s.FirstToken; i >= 1 && i <= last && i <= t.TokenCount; ++i) {
        const Token& token = t.Tokens[i];
        Word w;
        w.token = i;
        w.text = token.text();
        if (token.Class == TokenClass::Keyword && token.pKeyWord > 0) {
            w.kind = Word::kKeyword;
            w.text = dialectKeyWord(token.pKeyWord).Word;
        } else if (token.Class == TokenClass::Identifier) {
            w.kind = Word::kName;
        } else if (token.Class == TokenClass::Operator) {
            w.kind = Word::kOperator;
        } else if (token.Class == TokenClass::Commentish) {
            continue;
        }
        // A name before ":=" names an argument of the procedure called: it uses nothing.
        if (w.kind == Word::kOperator && w.text == ":=" && !words.empty() && words.back().kind == Word::kName)
            words.back().kind = Word::kNamedArgument;
        words.push_back(w);
    }
}

bool isKeyword(const Word& w, std::initializer_list<std::string_view> any) {
    if (w.kind != Word::kKeyword) return false;
    for (std::string_view k : any)
        if (w.text == k) return true;
    return false;
}
bool isOperator(const Word& w, std::string_view op) { return w.kind == Word::kOperator && w.text == op; }

// The word after the parentheses that open at `open`.
std::size_t afterParentheses(const std::vector<Word>& w, std::size_t open) {
    int depth = 0;
    for (std::size_t i = open; i < w.size(); ++i) {
        if (isOperator(w[i], "(")) ++depth;
        else if (isOperator(w[i], ")") && --depth == 0) return i + 1;
    }
    return w.size();
}

// Walks one member's statements in order, keeping what encloses the statement at hand.
class MemberReader {
public:
    MemberReader(const std::string& file, const std::string& module, bool standardModule, NameKeys& keys)
        : t_(theSourceTables()), file_(file), keys_(keys) {
        names_.module = keys.of(module);
        names_.file = file;
        names_.standardModule = standardModule;
        module_ = module;
    }
    MemberNames read();

private:
    void statement(const Statement& s);
    void formDescription(const Statement& s);
    void procedureStart(const std::vector<Word>& w, std::size_t at, bool isPublic);
    void declaration(const std::vector<Word>& w, std::size_t at, bool isPublic);
    void nameList(const std::vector<Word>& w, std::size_t at, NameKind kind, bool isPublic);
    std::size_t skipParameters(const std::vector<Word>& w, std::size_t open, bool declareThem);
    void declare(const Word& w, NameKind kind, bool isPublic, bool indexed = true);
    void usesOf(const std::vector<Word>& w);
    std::int32_t lineOf(std::int32_t token) const;
    std::int32_t placeInLine(std::int32_t token, std::int32_t line) const;
    bool writtenAt(const std::vector<Word>& w, std::size_t at) const;

    const SourceTables& t_;
    std::string file_;
    NameKeys& keys_;
    std::string module_;
    MemberNames names_;
    std::vector<Word> words_;
    std::vector<bool> declaring_;  // by token: the word declares a name, so it is no use
    int formDepth_ = 0;            // how many Begin blocks of the form's description are open
    int proc_ = kModuleLevel;
    int procCount_ = 0;
    std::string procName_;
    bool typePublic_ = true;  // of the Type or Enum whose members are being read
    enum class Block : std::uint8_t { kNone, kType, kEnum } block_ = Block::kNone;
};

MemberNames MemberReader::read() {
    declaring_.assign(static_cast<std::size_t>(t_.TokenCount) + 1, false);
    for (std::int32_t i = 1; i <= t_.StatementCount; ++i) statement(t_.Statements[i]);
    return std::move(names_);
}

void MemberReader::statement(const Statement& s) {
    if (s.Class == StatementClass::Comment || s.Class == StatementClass::Blank || s.Class == StatementClass::Header)
        return;
    if (s.Flags.has(StatementFlag::FormDescription)) return formDescription(s);
    std::vector<Word>& w = words_;
    wordsOf(t_, s, w);
    if (w.empty()) return;
    if (s.Class == StatementClass::ProcEnd) {
        proc_ = kModuleLevel, procName_.clear();
        return usesOf(w);
    }
    std::size_t at = 0;
    bool isPublic = false;
    bool modifier = false, explicitScope = false;
    while (at < w.size() && isKeyword(w[at], {"PUBLIC", "PRIVATE", "GLOBAL", "FRIEND", "DIM", "STATIC"})) {
        isPublic = isPublic || isKeyword(w[at], {"PUBLIC", "GLOBAL"});
        explicitScope = explicitScope || !isKeyword(w[at], {"STATIC"});
        modifier = true;
        ++at;
    }
    if (block_ != Block::kNone) {
        if (isKeyword(w[0], {"END"})) block_ = Block::kNone;
        else if (w[0].kind == Word::kName)
            declare(w[0], block_ == Block::kType ? NameKind::kTypeMember : NameKind::kEnumMember, typePublic_);
    } else if (s.Class == StatementClass::ProcStart) {
        // A procedure without Private is Public.
        procedureStart(w, at, !explicitScope || isPublic);
    } else if (at < w.size() && (modifier || isKeyword(w[at], {"CONST", "TYPE", "ENUM", "DECLARE", "EVENT"}))) {
        declaration(w, at, isPublic);
    }
    usesOf(w);
}

// "Begin VB.TextBox txtName" inside the form's own Begin declares a control; the lines of a
// control array repeat its name, which is one control.
void MemberReader::formDescription(const Statement& s) {
    std::vector<Word>& w = words_;
    wordsOf(t_, s, w);
    if (w.empty()) return;
    if (isKeyword(w[0], {"END"})) {
        formDepth_ = std::max(0, formDepth_ - 1);
        return;
    }
    if (!isKeyword(w[0], {"BEGIN"})) return;
    if (++formDepth_ < 2 || w.back().kind != Word::kName) return;
    NameKey key = keys_.of(w.back().text);
    for (const DeclaredName& d : names_.declared)
        if (d.entry.kind == NameKind::kControl && d.key == key) return;
    declare(w.back(), NameKind::kControl, false);
}

void MemberReader::procedureStart(const std::vector<Word>& w, std::size_t at, bool isPublic) {
    NameKind kind = NameKind::kSub;
    for (; at < w.size(); ++at) {
        if (isKeyword(w[at], {"SUB"})) kind = NameKind::kSub;
        else if (isKeyword(w[at], {"FUNCTION"})) kind = NameKind::kFunction;
        else if (isKeyword(w[at], {"GET"})) kind = NameKind::kPropertyGet;
        else if (isKeyword(w[at], {"LET"})) kind = NameKind::kPropertyLet;
        else if (isKeyword(w[at], {"SET"})) kind = NameKind::kPropertySet;
        else if (w[at].kind == Word::kName) break;
    }
    if (at >= w.size()) return;
    declare(w[at], kind, isPublic);
    names_.procDeclarations.push_back(names_.declared.size() - 1);
    procName_ = std::string(w[at].text);
    proc_ = procCount_++;
    names_.procNames.push_back(procName_);
    if (at + 1 < w.size() && isOperator(w[at + 1], "(")) skipParameters(w, at + 1, true);
}

// The parameters between the parentheses that open at `open`: each is a local of the procedure
// (or, for a Declare or an Event, a name of nothing that is used). Returns the word after ")".
std::size_t MemberReader::skipParameters(const std::vector<Word>& w, std::size_t open, bool declareThem) {
    int depth = 0;
    bool expectName = true;
    std::size_t i = open;
    for (; i < w.size(); ++i) {
        if (isOperator(w[i], "(")) {
            ++depth;
            continue;
        }
        if (isOperator(w[i], ")")) {
            if (--depth == 0) return i + 1;
            continue;
        }
        if (depth == 1 && isOperator(w[i], ",")) expectName = true;
        if (depth != 1 || !expectName || w[i].kind != Word::kName) continue;
        expectName = false;
        declare(w[i], NameKind::kParameter, false, declareThem);
    }
    return i;
}

void MemberReader::declaration(const std::vector<Word>& w, std::size_t at, bool isPublic) {
    // In a standard module Public and Global names are seen everywhere; an Enum or a Type is
    // Public unless it says Private.
    if (isKeyword(w[at], {"CONST"})) return nameList(w, at + 1, NameKind::kConst, isPublic);
    if (isKeyword(w[at], {"TYPE", "ENUM"})) {
        bool typePublic = isPublic || !isKeyword(w[0], {"PRIVATE"});
        block_ = isKeyword(w[at], {"TYPE"}) ? Block::kType : Block::kEnum;
        typePublic_ = typePublic;
        if (at + 1 < w.size() && w[at + 1].kind == Word::kName)
            declare(w[at + 1], block_ == Block::kType ? NameKind::kType : NameKind::kEnum, typePublic);
        return;
    }
    if (isKeyword(w[at], {"DECLARE", "EVENT"})) {
        NameKind kind = isKeyword(w[at], {"EVENT"}) ? NameKind::kEvent : NameKind::kDeclare;
        bool visible = isPublic || !isKeyword(w[0], {"PRIVATE"});
        for (std::size_t i = at + 1; i < w.size(); ++i) {
            if (w[i].kind != Word::kName) continue;
            declare(w[i], kind, visible);
            for (std::size_t j = i + 1; j < w.size(); ++j)
                if (isOperator(w[j], "(")) {
                    skipParameters(w, j, false);
                    break;
                }
            return;
        }
        return;
    }
    if (isKeyword(w[at], {"SUB", "FUNCTION", "PROPERTY"})) return;  // a procedure's start, read as such
    nameList(w, at, NameKind::kVariable, isPublic);
}

// Names separated by commas outside parentheses: the first name of each item is declared.
void MemberReader::nameList(const std::vector<Word>& w, std::size_t at, NameKind kind, bool isPublic) {
    int depth = 0;
    bool expectName = true;
    for (std::size_t i = at; i < w.size(); ++i) {
        if (isOperator(w[i], "(")) ++depth;
        else if (isOperator(w[i], ")")) --depth;
        else if (depth == 0 && isOperator(w[i], ",")) expectName = true;
        else if (depth == 0 && expectName && w[i].kind == Word::kName) {
            expectName = false;
            declare(w[i], kind, isPublic);
        }
    }
}

void MemberReader::declare(const Word& w, NameKind kind, bool isPublic, bool indexed) {
    declaring_[static_cast<std::size_t>(w.token)] = true;
    if (!indexed) return;
    DeclaredName d;
    d.key = keys_.of(w.text);
    d.entry.name = std::string(w.text);
    d.entry.module = module_;
    d.entry.kind = kind;
    bool local = proc_ != kModuleLevel;
    d.proc = local ? proc_ : kModuleLevel;
    d.entry.isPublic = !local && isPublic;
    std::int32_t line = lineOf(w.token);
    d.entry.declared = {file_, line, local ? procName_ : std::string(), placeInLine(w.token, line)};
    names_.declared.push_back(std::move(d));
}

// Whether the name at `at` is what the statement assigns to: the last name of the chain the
// statement starts with (after Let, Set, For or ReDim), "A(1).B", when "=" follows it.
bool MemberReader::writtenAt(const std::vector<Word>& w, std::size_t at) const {
    std::size_t i = 0;
    while (i < w.size() && isKeyword(w[i], {"LET", "SET", "FOR", "REDIM", "PRESERVE"})) ++i;
    bool redim = i > 0 && isKeyword(w[i - 1], {"REDIM", "PRESERVE"});
    std::size_t last = w.size();
    if (i + 1 < w.size() && isKeyword(w[i], {"ME"}) && isOperator(w[i + 1], ".")) i += 2;
    while (i < w.size() && w[i].kind == Word::kName) {
        last = i++;
        if (i < w.size() && isOperator(w[i], "(")) i = afterParentheses(w, i);
        if (i >= w.size() || !(isOperator(w[i], ".") || isOperator(w[i], "!"))) break;
        ++i;
    }
    if (last != at) return false;
    return redim || (i < w.size() && isOperator(w[i], "="));
}

// A statement may go on over several lines: a word stands on the line that holds its token.
std::int32_t MemberReader::lineOf(std::int32_t token) const {
    std::int32_t statement = t_.Tokens[token].Statement;
    if (statement < 1 || statement > t_.StatementCount) return 0;
    const Statement& s = t_.Statements[statement];
    for (std::int32_t r = s.FirstRecord; r >= 1 && r <= s.LastRecord && r <= t_.RecordCount; ++r)
        if (token >= t_.Records[r].FirstT && token <= t_.Records[r].LastT) return r;
    if (s.FirstRecord >= 1) return s.FirstRecord;
    // A statement after a ":" is given no records of its own: the records hold the tokens in
    // order, so the one that holds the token is found by halves.
    std::int32_t low = 1, high = t_.RecordCount;
    while (low <= high) {
        std::int32_t mid = low + (high - low) / 2;
        const Record& r = t_.Records[mid];
        if (r.FirstT == 0 || token < r.FirstT) high = mid - 1;
        else if (token > r.LastT) low = mid + 1;
        else return mid;
    }
    return 0;
}

std::int32_t MemberReader::placeInLine(std::int32_t token, std::int32_t line) const {
    if (line < 1 || line > t_.RecordCount || token < t_.Records[line].FirstT) return -1;
    return token - t_.Records[line].FirstT;
}

void MemberReader::usesOf(const std::vector<Word>& w) {
    for (std::size_t i = 0; i < w.size(); ++i) {
        if (w[i].kind != Word::kName || declaring_[static_cast<std::size_t>(w[i].token)]) continue;
        UseCandidate u;
        u.key = keys_.of(w[i].text);
        u.proc = proc_;
        if (i >= 1 && (isOperator(w[i - 1], ".") || isOperator(w[i - 1], "!"))) {
            u.qualified = true;
            u.qualifiedByMe = i >= 2 && isKeyword(w[i - 2], {"ME"});
            if (i >= 2 && w[i - 2].kind == Word::kName) u.qualifier = keys_.of(w[i - 2].text);
        }
        u.written = writtenAt(w, i);
        u.line = lineOf(w[i].token);
        u.token = placeInLine(w[i].token, u.line);
        names_.uses.push_back(u);
    }
}

}  // namespace

NameKey NameKeys::of(std::string_view name) {
    upper_.assign(name);
    for (char& c : upper_) c = static_cast<char>(upperChar(static_cast<unsigned char>(c)));
    auto [it, added] = keys_.try_emplace(upper_, static_cast<NameKey>(keys_.size() + 1));
    return it->second;
}

MemberNames gatherMemberNames(const std::string& file, const std::string& module, bool standardModule, NameKeys& keys) {
    return MemberReader(file, module, standardModule, keys).read();
}

}  // namespace hlyd
