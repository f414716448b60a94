#include "files/proc_list.h"

#include <algorithm>

#include <string>

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "files/file_table.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr const char* kDeclarations = "<Declarations>";
constexpr const char* kDesignerDefinition = "(Designer Object Definition)";

struct NewEntry {
    std::string name;
    std::string type;
    std::int32_t nameToken = 0;  // 0 for entries that name no procedure
    std::int32_t verbToken = 0;
};

// A view, not a copy: the head of every record is looked at, and only a procedure keeps a name.
std::string_view textOf(std::int32_t token) {
    const SourceTables& t = theSourceTables();
    return token >= 1 && token <= t.TokenCount ? t.Tokens[token].text() : std::string_view();
}

// Record 1 tells whether the file starts with a form definition, and the Attribute line its name.
void noteFileHead(std::int32_t r, std::int32_t s) {
    SourceTables& t = theSourceTables();
    const Record& rec = t.Records[r];
    if (r == 1 && textOf(s) == "VERSION" && t.TokenCount == 2) {
        t.Statements[s].Flags.set(StatementFlag::FormDescription);
        fileTable().sVBName.clear();
    }
    if (textOf(t.Statements[s].FirstToken) == "Attribute" && textOf(rec.FirstT + 1) == "VB_Name") {
        std::string name(textOf(rec.FirstT + 3));
        std::erase(name, '"');
        fileTable().sVBName = name;
    }
}

// The accessor kind of a property turns "P" into "Q" (Get), "R" (Let) or "S" (Set).
NewEntry procedureEntry(std::int32_t s) {
    const SourceTables& t = theSourceTables();
    const Statement* st = &t.Statements[s];
    if (st->Class == StatementClass::Comment || st->Class == StatementClass::Blank) {
        std::int32_t tied = t.Records[st->FirstRecord].TiedTo;
        st = &t.Statements[t.Records[tied].FirstS];
    }
    std::int32_t verb = st->Verb;
    if (verb == 0 && t.Statements[t.StatementCount].Verb != 0) verb = t.Statements[t.StatementCount].Verb;
    NewEntry e;
    e.verbToken = verb;
    std::string_view verbText = textOf(verb);
    e.type = std::string(verbText.substr(0, 1));
    if (upperCase(verbText) == "PROPERTY") {
        e.nameToken = verb + 2;
        std::string_view accessorText = textOf(verb + 1);
        char accessor =
                accessorText.empty() ? '\0' : static_cast<char>(upperChar(static_cast<unsigned char>(accessorText[0])));
        int step = accessor == 'G' ? 1 : accessor == 'L' ? 2 : accessor == 'S' ? 3 : 0;
        e.type = std::string(1, static_cast<char>('P' + step));
    } else {
        e.nameToken = verb + 1;
    }
    if (e.nameToken <= t.TokenCount) {
        e.name = std::string(textOf(e.nameToken));
        if (!e.name.empty() && e.name[0] != '<' && upperCase(textOf(e.nameToken - 2)) == "PROPERTY")
            e.name += " [" + std::string(textOf(e.nameToken - 1)) + "]";
    }
    return e;
}

bool isFormTypeFile() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return false;
    const std::string& name = f.oFile.Item(f.wCurrentFile).FileName;
    std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos) return false;
    std::string ext = upperCase(name.substr(dot + 1));
    return ("|" + upperCase(hlydSettings().FormExt) + "|").find("|" + ext + "|") != std::string::npos;
}

// What a code module does not say is public; in a form it is private. The word stands before
// the verb: a property's accessor lies between its verb and its name.
bool visibility(std::int32_t verbToken) {
    std::string before = upperCase(textOf(verbToken - 1));
    if (before == "PUBLIC") return true;
    if (before == "PRIVATE") return false;
    return !isFormTypeFile();
}

std::int16_t eventFlag(const std::string& name) {
    std::size_t underscore = name.find('_');
    if (underscore == std::string::npos || underscore < 1) return 0;
    return BabIsKeyWord(name.substr(underscore + 1)) ? -1 : 0;
}

bool suppressed(const NewEntry& e) {
    const std::vector<ProcEntry>& procs = yProc();
    const ProcEntry& last = procs.back();
    if (last.Name == e.name && last.Type == e.type) return true;
    return e.name == kDeclarations && procs.size() > 1 && last.Type != "D";
}

// Adds the entry and returns the statement number it was filed under.
std::int32_t addEntry(const NewEntry& e, std::int32_t r, std::int32_t firstNewStatement) {
    const SourceTables& t = theSourceTables();
    std::vector<ProcEntry>& procs = yProc();
    if (procs.back().FirstRecord != 0) procs.emplace_back();
    ProcEntry& p = procs.back();
    p.Name = e.name;
    p.Type = e.type;
    p.FirstStatement = t.StatementCount;
    for (std::int32_t s = firstNewStatement; s <= t.StatementCount; ++s)
        if (t.Statements[s].Class == StatementClass::ProcStart) {
            p.FirstStatement = s;
            break;
        }
    p.FirstRecord = t.Statements[p.FirstStatement].FirstRecord;
    if (p.FirstRecord == 0) p.FirstRecord = r;
    if (e.nameToken > 2) p.IsPublic = visibility(e.verbToken);
    p.IsEvent = eventFlag(p.Name);
    if (theDebug().TraceApplication)
        theLog().LogData(" Proc- Rec/Name " + std::to_string(p.FirstRecord) + " " + p.Name);
    return p.FirstStatement;
}

// The entry a record starts, if any.
bool entryDue(std::int32_t r, NewEntry& e) {
    const SourceTables& t = theSourceTables();
    std::int32_t s = t.Records[r].FirstS;
    const Statement& st = t.Statements[s];
    if (st.Class == StatementClass::ProcStart) {
        e = procedureEntry(s);
        return true;
    }
    bool formDefinition = st.Flags.has(StatementFlag::FormDescription);
    if (r == 1 && formDefinition) {
        e = {kDesignerDefinition, "M"};
        return true;
    }
    bool afterDefinition =
            r > 1 && t.Statements[t.Records[r - 1].FirstS].Flags.has(StatementFlag::FormDescription) && !formDefinition;
    if (r == 1 || afterDefinition) {
        e = {kDeclarations, "D"};
        return true;
    }
    return false;
}

}  // namespace

void scanNewRecordsForProcedures(std::int32_t firstNewRecord, std::int32_t firstNewStatement) {
    const SourceTables& t = theSourceTables();
    for (std::int32_t r = firstNewRecord; r <= t.RecordCount; ++r) {
        std::int32_t s = t.Records[r].FirstS;
        noteFileHead(r, s);
        NewEntry e;
        if (!entryDue(r, e) || suppressed(e)) continue;
        // The statement and the record numbers are compared as they stand: a long-kept rule.
        if (addEntry(e, r, firstNewStatement) > r) break;
    }
}

std::int32_t declarationStatement(const ProcEntry& entry) {
    const SourceTables& t = theSourceTables();
    std::int32_t last = std::min(entry.LastStatement, t.StatementCount);
    for (std::int32_t s = entry.FirstStatement; s >= 1 && s <= last; ++s)
        if (t.Statements[s].Class == StatementClass::ProcStart) return s;
    return entry.FirstStatement;
}

}  // namespace hlyd
