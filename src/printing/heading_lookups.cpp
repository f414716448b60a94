#include "printing/heading_lookups.h"

#include "base/hlyd_error.h"
#include "files/project_file.h"
#include "platform/os.h"
#include "platform/ui.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {
std::string withoutDirectory(const std::string& path) {
    std::string name, directory;
    sbFileNameFromDir(path, name, directory);
    return name;
}
}  // namespace

const cFileDesc& headingCurrentFile() {
    const FileTableModule& files = fileTable();
    if (files.wCurrentFile < 1 || files.wCurrentFile > files.oFile.Count()) raiseRuntime(9);
    return files.oFile.Item(files.wCurrentFile);
}

std::string procedureNameAt(std::int32_t record) {
    const std::vector<ProcEntry>& procs = yProc();
    if (procs.empty()) raiseRuntime(9);
    std::size_t at = procs.size() - 1;
    while (at > 0 && procs[at].FirstRecord > record) --at;
    return procs[at].Name;
}

std::string currentProjectName() {
    std::int16_t project = headingCurrentFile().WhichProject;
    if (project < 1) return {};
    if (project > oProjectFiles().Count()) raiseRuntime(9);
    return withoutDirectory(oProjectFiles().Item(project).FileName);
}

std::string askRoutineDescription(const std::string& procedure) {
    std::optional<std::string> answer =
            theUi().inputBox({"Enter a description for the routine\n" + procedure, "Enter Description", ""});
    return answer.value_or(std::string());
}

std::int64_t currentFileSavedAt() {
    os::FileInfo info = os::fileInfo(headingCurrentFile().FileName);
    if (!info.exists()) raiseRuntime(runtimeErrorFromErrno(info.error));
    return info.modifiedSeconds;
}

}  // namespace hlyd
