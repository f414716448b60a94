#include "files_dump.h"

#include <cstring>
#include <filesystem>
#include <vector>

#include "analysis/basiclan.h"
#include "analysis_dump.h"
#include "base/c_debug.h"
#include "files/file_loading.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/project_file.h"
#include "files/project_listing.h"
#include "json_lines.h"
#include "tool_errors.h"
#include "platform/console_ui.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// Answers every question as a run without a window does and keeps every text it was asked to show.
class RecordingUi : public ConsoleUi {
public:
    MsgAnswer messageBox(const MessageBoxRequest& request) override {
        texts.push_back(request.text);
        return windowlessAnswer(request, stderr);
    }
    std::vector<std::string> texts;
};

std::string jsonArray(const std::vector<std::string>& items) {
    std::string text = "[";
    for (std::size_t i = 0; i < items.size(); ++i) text += (i ? "," : "") + jsonString(items[i]);
    return text + "]";
}

std::string numberArray(const std::vector<std::int16_t>& items, int count) {
    std::string text = "[";
    for (int i = 1; i <= count && i < static_cast<int>(items.size()); ++i)
        text += (i > 1 ? "," : "") + std::to_string(items[i]);
    return text + "]";
}

void dumpProjectFile(cProjectFile& p, int i, std::ostream& out) {
    out << JsonObject("project")
                    .add("i", i)
                    .add("FileName", p.FileName)
                    .add("FileType", p.FileType)
                    .add("Records", p.Records)
                    .add("FormCount", p.FormCount)
                    .add("ClassCount", p.ClassCount)
                    .add("ModuleCount", p.ModuleCount)
                    .add("ObjectCount", p.ObjectCount)
                    .add("ReferenceCount", p.ReferenceCount)
                    .addRaw("Forms", numberArray(p.Forms, p.FormCount))
                    .addRaw("Classes", numberArray(p.Classes, p.ClassCount))
                    .addRaw("Modules", numberArray(p.Modules, p.ModuleCount))
                    .str()
        << '\n';
    for (int n = 1; n <= static_cast<int>(p.ProjectRecords.size()); ++n) {
        const cProjectLine& l = p.line(n);
        out << JsonObject("projectline")
                        .add("n", n)
                        .add("AsRecord", l.AsRecord)
                        .add("KeyWord", l.KeyWord)
                        .add("FileType", l.FileType)
                        .add("SyntaxError", l.SyntaxError)
                        .add("ValueCount", l.ValueCount)
                        .addRaw("Values", jsonArray(l.Value))
                        .add("FileName", l.FileName)
                        .add("WholeFile", l.WholeFile)
                        .add("VBName", l.VBName)
                        .str()
            << '\n';
    }
}

bool loadSettings() {
    queryLocaleSeparators();
    loadSettingsAtStartup();
    return true;
}

}  // namespace

int dumpProcedures(const std::string& path, std::ostream& out, std::ostream& err) {
    if (unreadableFile("hlyd-dump", path, err)) return 2;
    loadSettings();
    oFile().Add({path, kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    const SourceTables& t = theSourceTables();
    dumpTables(t, out);
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
    const std::vector<TokenElement>& elements = fileTable().TokenElements;
    for (std::int32_t i = 1; i <= t.TokenCount && i < static_cast<std::int32_t>(elements.size()); ++i)
        out << JsonObject("element").add("n", i).add("Element", static_cast<int>(elements[i])).str() << '\n';
    const std::vector<ProcEntry>& procs = yProc();
    for (std::size_t i = 0; i < procs.size(); ++i) {
        const ProcEntry& p = procs[i];
        out << JsonObject("proc")
                        .add("i", static_cast<std::int64_t>(i))
                        .add("Name", p.Name)
                        .add("Type", p.Type)
                        .add("FirstRecord", p.FirstRecord)
                        .add("LastRecord", p.LastRecord)
                        .add("FirstStatement", p.FirstStatement)
                        .add("LastStatement", p.LastStatement)
                        .add("IsPublic", p.IsPublic)
                        .add("IsEvent", static_cast<std::int32_t>(p.IsEvent))
                        .add("ListIndex", p.ListIndex)
                        .str()
            << '\n';
    }
    return 0;
}

int dumpProject(const std::string& path, std::ostream& out, std::ostream& err) {
    if (unreadableFile("hlyd-dump", path, err)) return 2;
    loadSettings();
    RecordingUi ui;
    setUi(&ui);
    PFParseFile({cFileDesc{path, kFileProject, true, 0, 0}});
    setUi(nullptr);
    for (int i = 1; i <= oProjectFiles().Count(); ++i) dumpProjectFile(oProjectFiles().Item(i), i, out);
    for (const std::string& text : ui.texts) out << JsonObject("message").add("text", text).str() << '\n';
    for (const cFileDesc& f : oFile())
        out << JsonObject("file")
                        .add("FileName", f.FileName)
                        .add("FileType", static_cast<std::int32_t>(f.FileType))
                        .add("IsSelected", f.IsSelected)
                        .add("WhichProject", static_cast<std::int32_t>(f.WhichProject))
                        .add("WhichFile", static_cast<std::int32_t>(f.WhichFile))
                        .str()
            << '\n';
    return 0;
}

}  // namespace hlyd
