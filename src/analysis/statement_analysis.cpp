#include "analysis/statement_analysis.h"

#include <string>
#include <string_view>

#include "analysis/basiclan_state.h"

namespace hlyd {

namespace {

const std::string kNoText;

const std::string& upperWordAt(const SourceTables& t, std::int32_t index, std::string& scratch) {
    if (index < 1 || index > t.TokenCount) return kNoText;
    scratch = upperCase(t.Tokens[index].text());
    return scratch;
}

// The words are compared as views: their lengths tell most of them apart at once.
DeclarationVerb declarationVerb(std::string_view w) {
    using enum DeclarationVerb;
    static constexpr std::string_view kWords[] = {"CONST",  "DECLARE", "DIM",    "PRIVATE", "GLOBAL",
                                                  "PUBLIC", "REDIM",   "STATIC", "EVENT"};
    static constexpr DeclarationVerb kVerbs[] = {Const, Declare, Dim, Private, Public, Public, ReDim, Static, Event};
    for (int i = 0; i < 9; ++i)
        if (w == kWords[i]) return kVerbs[i];
    return None;
}

bool isOneOf(std::string_view w, std::initializer_list<std::string_view> words) {
    for (std::string_view candidate : words)
        if (w == candidate) return true;
    return false;
}

class StatementBuilder {
public:
    StatementBuilder(SourceTables& t, std::int32_t n) : t_(t), m_(basiclan()), n_(n) {}
    void build(std::int32_t& nextToken, std::int32_t lastToken);

private:
    std::int32_t findStart();
    void findEnd(std::int32_t lastToken);
    void findVerb();
    void fileHeaders();
    void procedureBounds(std::string_view w);
    void blockMembers(std::string_view w);
    void declaration(std::string_view w, DeclarationVerb verb);
    void declare(StatementDetail detail) {
        s_.Class = StatementClass::Declaration;
        s_.Detail = detail;
    }
    void indentFlag(const KeyWord& k, std::string_view w);
    void outdentFlag(const KeyWord& k, std::string_view w);
    const std::string& nextWord() { return upperWordAt(t_, s_.Verb + 1, scratch_); }
    bool inHeader() const { return m_.InFormHeader || m_.InClassHeader; }

    SourceTables& t_;
    BasiclanModule& m_;
    std::int32_t n_;
    Statement s_;
    std::int32_t start_ = 0;
    std::string scratch_;
};

void StatementBuilder::build(std::int32_t& nextToken, std::int32_t lastToken) {
    s_.FirstToken = nextToken;
    Token& first = t_.Tokens[nextToken];
    first.Flags.set(TokenFlag::StatementStart);
    if (first.is(CommentishDetail::Comment) || first.is(CommentishDetail::Empty)) {
        s_.Class = statementClassOf(first.detailAs<CommentishDetail>());
        first.Statement = n_;
        s_.LastToken = lastToken;
        nextToken = lastToken + 1;
        t_.Statements[n_] = s_;
        return;
    }
    start_ = findStart();
    findEnd(lastToken);
    nextToken = s_.LastToken + 1;
    findVerb();
    if (s_.Verb != 0 && !m_.InType && t_.Tokens[s_.Verb].pKeyWord != 0) fileHeaders();
    if (m_.InFormHeader) s_.Flags.set(StatementFlag::FormDescription);
    else if (m_.InClassHeader) s_.Class = StatementClass::Header;
    if (s_.Verb == 0) {
        if (m_.InType) declare(StatementDetail::TypeMember);
        else if (m_.InEnum) declare(StatementDetail::EnumMember);
        t_.Statements[n_] = s_;
        return;
    }
    std::int32_t pKeyWord = t_.Tokens[s_.Verb].pKeyWord;
    const KeyWord& k = dialectKeyWord(pKeyWord);
    const std::string_view w = k.Word;
    procedureBounds(w);
    DeclarationVerb verb = declarationVerb(w);
    if (verb == DeclarationVerb::None) blockMembers(w);
    else declaration(w, verb);
    if (isOneOf(w, {"GOSUB", "GOTO", "IF", "ON", "RESUME"})) ScanForLabelReferences(pKeyWord, s_, t_);
    if (k.Indent) indentFlag(k, w);
    if (k.KeepLeadingComments) s_.Flags.set(StatementFlag::KeepLeadingComments);
    if (k.Outdent) outdentFlag(k, w);
    t_.Statements[n_] = s_;
}

// A label and its ":" (or a line number) belong to the statement that follows them.
std::int32_t StatementBuilder::findStart() {
    Token& first = t_.Tokens[s_.FirstToken];
    if (!first.is(CommentishDetail::Label)) return s_.FirstToken;
    s_.Flags.set(StatementFlag::Label);
    first.Statement = n_;
    // An alphanumeric label and its ":" stand ahead of the statement proper, and only the label
    // takes the statement's number. A line number has no ":": the token after it takes it too.
    if (!first.text().empty() && static_cast<unsigned char>(first.text()[0]) > '9') return s_.FirstToken + 2;
    if (s_.FirstToken + 1 <= t_.TokenCount) t_.Tokens[s_.FirstToken + 1].Statement = n_;
    return s_.FirstToken + 1;
}

void StatementBuilder::findEnd(std::int32_t lastToken) {
    s_.LastToken = lastToken;
    for (std::int32_t i = start_; i <= lastToken; ++i) {
        Token& token = t_.Tokens[i];
        token.Statement = n_;
        if (token.Class != TokenClass::Commentish && token.Class != TokenClass::Colon) s_.LastSignificant = i;
        if (token.is(ColonDetail::Separator)) {
            s_.LastToken = i;
            return;
        }
    }
}

void StatementBuilder::findVerb() {
    for (std::int32_t i = start_; i <= s_.LastToken; ++i) {
        Token& token = t_.Tokens[i];
        if (token.pKeyWord != 0) {
            const KeyWord& k = dialectKeyWord(token.pKeyWord);
            if (k.ClassCode != 'V') continue;
            const KeyWord& before = dialectKeyWord(i > 1 ? t_.Tokens[i - 1].pKeyWord : 0);
            bool isVerb = i == start_ || (i == start_ + 1 && t_.Tokens[i - 1].text() == "#") || before.ScanForVerb ||
                          before.ClassOverride;
            if (!isVerb) continue;
            s_.Verb = i;
            if (!k.ClassOverride) return;
        } else if (token.text() == "=") {
            s_.Verb = i;
            token.pKeyWord = static_cast<std::int16_t>(m_.LetKeyWord);
            return;
        }
    }
}

void StatementBuilder::fileHeaders() {
    const std::string_view w = dialectKeyWord(t_.Tokens[s_.Verb].pKeyWord).Word;
    if (w == "ATTRIBUTE") {
        s_.Class = StatementClass::Header;
    } else if (w == "BEGIN") {
        if (start_ == s_.LastToken) m_.InClassHeader = true;
        else m_.InFormHeader = true;
    } else if (w == "VERSION") {
        s_.Class = StatementClass::Header;
        if (s_.LastToken == 2) m_.InFormHeader = true;
    }
}

void StatementBuilder::procedureBounds(std::string_view w) {
    if (w == "FUNCTION" || w == "SUB" || (w == "PROPERTY" && isOneOf(nextWord(), {"LET", "GET", "SET"}))) {
        s_.Class = StatementClass::ProcStart;
        m_.InProc = true;
    } else if (w == "END" && s_.Verb < s_.LastToken && isOneOf(nextWord(), {"PROPERTY", "FUNCTION", "SUB"})) {
        s_.Class = StatementClass::ProcEnd;
        m_.InProc = false;
    }
}

// Type and Enum are tracked one step ahead, by the tokenizer: so an "End Type" is recognised by
// the member line before it.
void StatementBuilder::blockMembers(std::string_view w) {
    StatementDetail before = n_ > 1 ? t_.Statements[n_ - 1].Detail : StatementDetail::None;
    if (m_.InType) declare(StatementDetail::TypeHead);
    else if (w == "END" && before == StatementDetail::TypeMember) declare(StatementDetail::TypeEnd);
    if (m_.InEnum) declare(StatementDetail::EnumHeadOrValue);
    else if (w == "END" && before == StatementDetail::EnumMember) declare(StatementDetail::EnumEnd);
}

void StatementBuilder::declaration(std::string_view w, DeclarationVerb verb) {
    const std::string_view p = dialectKeyWord(s_.Verb > 1 ? t_.Tokens[s_.Verb - 1].pKeyWord : 0).Word;
    DeclarationScope scope = DeclarationScope::Module;
    if (isOneOf(p, {"PUBLIC", "GLOBAL"}) || isOneOf(w, {"PUBLIC", "GLOBAL"})) scope = DeclarationScope::Public;
    else if (m_.InProc) scope = DeclarationScope::Procedure;
    declare(declarationDetail(scope, verb));
}

void StatementBuilder::indentFlag(const KeyWord& /*k*/, std::string_view w) {
    if (w == "BEGIN" || w == "BEGINPROPERTY") {
        if (inHeader()) s_.Flags.set(StatementFlag::Indent);
    } else if (w == "IF") {
        std::string scratch;
        if (s_.LastSignificant != 0 && upperWordAt(t_, s_.LastSignificant, scratch) == "THEN")
            s_.Flags.set(StatementFlag::Indent);
    } else if (!inHeader()) {
        s_.Flags.set(StatementFlag::Indent);
    }
}

void StatementBuilder::outdentFlag(const KeyWord& /*k*/, std::string_view w) {
    if (w == "END") {
        if (s_.LastSignificant == 0) return;
        std::string scratch;
        const std::string& last = upperWordAt(t_, s_.LastSignificant, scratch);
        if (!isOneOf(last, {"END", "FUNCTION", "PROPERTY", "SUB"}) || inHeader()) s_.Flags.set(StatementFlag::Outdent);
    } else if (w == "ENDPROPERTY") {
        if (m_.InFormHeader) s_.Flags.set(StatementFlag::Outdent);
    } else if ((!m_.InFormHeader && !m_.InType) || w == "ELSE") {
        s_.Flags.set(StatementFlag::Outdent);
    }
}

}  // namespace

void AnalyzeStatement(SourceTables& t, std::int32_t& nextToken, std::int32_t lastToken) {
    BasiclanModule& m = basiclan();
    std::int32_t n = ++t.StatementCount;
    if (n > m.StatementsUBound - kGrowthMargin) {
        m.StatementsUBound += kStatementsStep;
        t.Statements.redimPreserve(m.StatementsUBound);
    }
    StatementBuilder(t, n).build(nextToken, lastToken);
}

}  // namespace hlyd
