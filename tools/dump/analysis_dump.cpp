#include "analysis_dump.h"

#include "platform/os.h"

#include <cerrno>
#include <cstring>

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "json_lines.h"

namespace hlyd {

namespace {

void dumpRecord(const Record& r, std::int32_t n, std::ostream& out) {
    out << JsonObject("record")
                    .add("n", n)
                    .add("FirstS", r.FirstS)
                    .add("LastS", r.LastS)
                    .add("FirstT", r.FirstT)
                    .add("LastT", r.LastT)
                    .add("Indent", r.Indent)
                    .add("TiedTo", r.TiedTo)
                    .add("TiedStart", r.TiedStart)
                    .str()
        << '\n';
}

void dumpStatement(const Statement& s, std::int32_t n, std::ostream& out) {
    out << JsonObject("statement")
                    .add("n", n)
                    .add("Class", codeOf(s.Class))
                    .add("Detail", codeOf(s.Detail))
                    .add("Flags", s.Flags.bits())
                    .add("FirstToken", s.FirstToken)
                    .add("LastToken", s.LastToken)
                    .add("LastSignificant", s.LastSignificant)
                    .add("FirstRecord", s.FirstRecord)
                    .add("LastRecord", s.LastRecord)
                    .add("Verb", s.Verb)
                    .str()
        << '\n';
}

void dumpToken(const Token& t, std::int32_t n, std::ostream& out) {
    out << JsonObject("token")
                    .add("n", n)
                    .add("Class", codeOf(t.Class))
                    .add("Detail", t.Detail)
                    .add("Flags", t.Flags.bits() & ~static_cast<int>(TokenFlag::KeyWordSeen))  // shown apart
                    .add("Continued", t.Continued)
                    .add("KeyWordSeen", t.keyWordSeen())
                    .add("pKeyWord", t.pKeyWord)
                    .add("KeyWord", t.pKeyWord == 0 ? std::string() : dialectKeyWord(t.pKeyWord).Word)
                    .add("Statement", t.Statement)
                    .add("Text", t.text())
                    .add("LeadingSpace", t.leadingSpace())
                    .str()
        << '\n';
}

void dumpEnd(const SourceTables& t, std::ostream& out) {
    const cDebug& d = theDebug();
    out << JsonObject("end")
                    .add("BabStatus", d.BabStatus)
                    .add("BabStatusDetail", d.BabStatusDetail)
                    .add("Dialect", basiclan().CurrentDialect)
                    .add("RecordCount", t.RecordCount)
                    .add("StatementCount", t.StatementCount)
                    .add("TokenCount", t.TokenCount)
                    .str()
        << '\n';
}

// Validation decides the dialect; a file that fails it is analysed all the same.
std::string validate(const std::string& path, std::ostream& out) {
    std::string dialect = "?";
    BabValidateFile(path, dialect);
    const cDebug& d = theDebug();
    out << JsonObject("validate")
                    .add("BabStatus", d.BabStatus)
                    .add("BabStatusDetail", d.BabStatusDetail)
                    .add("Dialect", dialect)
                    .str()
        << '\n';
    return dialect == "?" ? "6" : dialect;
}

}  // namespace

void dumpTables(const SourceTables& t, std::ostream& out) {
    for (std::int32_t i = 1; i <= t.RecordCount; ++i) dumpRecord(t.Records[i], i, out);
    for (std::int32_t i = 1; i <= t.StatementCount; ++i) dumpStatement(t.Statements[i], i, out);
    for (std::int32_t i = 1; i <= t.TokenCount; ++i) dumpToken(t.Tokens[i], i, out);
}

int dumpFileAnalysis(const std::string& path, const AnalysisDumpOptions& options, std::ostream& out,
                     std::ostream& err) {
    SourceFile file;
    if (int e = file.open(path); e != 0) {
        err << "hlyd-dump: cannot open " << path << ": " << os::errorText(e) << '\n';
        return 2;
    }
    std::string dialect = options.dialect == "auto" ? validate(path, out) : options.dialect;
    SourceTables& tables = theSourceTables();
    BabInitFile(tables, dialect);
    for (;;) {
        BabParseRecord(file, tables);
        int status = theDebug().BabStatus;
        if (status == kStatusEndOfFile || status == kStatusReadingStopped) break;
    }
    if (!options.summary) dumpTables(tables, out);
    dumpEnd(tables, out);
    return 0;
}

}  // namespace hlyd
