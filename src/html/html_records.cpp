#include "html/html_records.h"

#include <algorithm>
#include <cctype>
#include <cmath>

#include "display/token_layout.h"
#include "files/file_table.h"
#include "html/gen_html.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr Destination kHTMLDestination = kDisplay;  // HTML follows the display settings

// Spaces ahead of a token: the source's own gap, or for the first token that counts the
// analysed indentation (a line number before it keeps its place). `blankAfter` tells that a line
// number is followed by a blank.
int spacesFor(const SourceTables& t, const FormatRecord& f, const Record& r, std::int32_t token,
              std::int32_t firstToken, const Statement& s, int spaces, bool& blankAfter) {
    const Token& tok = t.Tokens[token];
    blankAfter = false;
    if (token != firstToken) {
        spaces = static_cast<int>(tok.LeadingLength);
        blankAfter = token == r.FirstT && isNumericText(tok.text());
        return spaces;
    }
    // The form description keeps its own layout: its blanks, and no indentation on top of them.
    if (s.Flags.has(StatementFlag::FormDescription)) return spaces + static_cast<int>(tok.LeadingLength);
    if (f.Indent) {
        // Capped as a view caps it: deep nesting would make the document grow with the square of
        // the depth.
        std::int64_t indent = std::int64_t{f.IndentAmount} * r.Indent;
        spaces += static_cast<int>(std::min<std::int64_t>(indent, kFurthestTextColumn));
        if (token > 1 && t.Tokens[token - 1].Continued == 1) spaces += 1;
    } else {
        spaces += static_cast<int>(tok.LeadingLength);
    }
    return spaces;
}

}  // namespace

bool isNumericText(std::string_view text) {
    // Nearly every record begins with a word: its first byte settles it.
    if (text.empty()) return false;
    if (char c = text[0]; c != ' ' && c != '&' && c != '+' && c != '-' && c != '.' && (c < '0' || c > '9'))
        return false;
    std::size_t i = 0, n = text.size();
    while (i < n && text[i] == ' ') ++i;
    if (i + 1 < n && text[i] == '&' &&
        (text[i + 1] == 'H' || text[i + 1] == 'h' || text[i + 1] == 'O' || text[i + 1] == 'o'))
        return i + 2 < n && text.find_first_not_of("0123456789ABCDEFabcdef&", i + 2) == std::string_view::npos;
    if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
    bool digits = false;
    while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    if (i < n && text[i] == '.') {
        ++i;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i, digits = true;
    }
    if (digits && i < n && (text[i] == 'E' || text[i] == 'e')) {
        ++i;
        if (i < n && (text[i] == '+' || text[i] == '-')) ++i;
        if (i >= n || !std::isdigit(static_cast<unsigned char>(text[i]))) return false;
        while (i < n && std::isdigit(static_cast<unsigned char>(text[i]))) ++i;
    }
    while (i < n && text[i] == ' ') ++i;
    return digits && i == n;
}

bool shownByView(const Statement& s) {
    const HlydSettings& settings = hlydSettings();
    return s.Flags.has(StatementFlag::FormDescription) ? settings.ViewFormDef[kHTMLDestination]
                                                       : settings.ViewCode[kHTMLDestination];
}

std::int32_t firstIndentedToken(const Record& r) {
    return isNumericText(theSourceTables().Tokens[r.FirstT].text()) ? r.FirstT + 1 : r.FirstT;
}

void shownTokens(std::int32_t record, std::int32_t firstToken, std::vector<ShownToken>& tokens) {
    shownTokens(record, firstToken, governingStatement(record), tokens);
}

void shownTokens(std::int32_t record, std::int32_t firstToken, const Statement& s, std::vector<ShownToken>& tokens) {
    tokens.clear();
    const SourceTables& t = theSourceTables();
    const FormatRecord& f = displayAttributes().Format[kHTMLDestination];
    const Record& r = t.Records[record];
    if (s.Class == StatementClass::Header && f.SkipAttributes) return;
    const std::vector<TokenElement>& elements = fileTable().TokenElements;
    bool procedureLine = t.Statements[r.FirstS].Class == StatementClass::ProcStart;
    int spaces = 0;
    for (std::int32_t i = r.FirstT; i <= r.LastT && i >= 1; ++i) {
        ShownToken shown;
        spaces = spacesFor(t, f, r, i, firstToken, s, spaces, shown.blankAfter);
        int element = i < static_cast<std::int32_t>(elements.size()) ? elements[static_cast<std::size_t>(i)] : 0;
        if (element == 0) element = kElemIdentifiers;
        if (procedureLine) element = kElemProcedures;
        shown.text = t.Tokens[i].text();
        shown.spaces = spaces;
        shown.element = element;
        shown.index = i - r.FirstT;
        tokens.push_back(shown);
    }
    bool lastContinued = r.LastT >= 1 && (t.Tokens[r.LastT].Continued & 1);
    if (f.ContinueHonor && lastContinued) tokens.push_back({" _", spaces, kElemKeyWords, false, -1});
}

std::string htmlElementStyle(int cls, int element, ColourSyntax syntax) {
    const AttributeRecord& a = displayAttributes().Elements[static_cast<std::size_t>(element)].slot[kHTMLDestination];
    return htmlStyleRule(cls, a.Font.Name, static_cast<long>(std::nearbyint(a.Font.Size)), a.Font.Italic, a.Font.Bold,
                         a.ForeColor, syntax);
}

}  // namespace hlyd
