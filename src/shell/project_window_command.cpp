#include "shell/project_window_command.h"

#include "base/vb_convert.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "shell/project_choice.h"
#include "shell/window_commands.h"

namespace hlyd {

namespace {

std::string fileInView() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return {};
    return f.oFile.Item(f.wCurrentFile).FileName;
}

// The groups' own entries stay ahead; the projects and members are those just chosen.
void replaceProjectEntries(const FileCollection& chosen) {
    FileCollection& files = fileTable().oFile;
    FileCollection kept;
    for (const cFileDesc& d : files)
        if (d.FileType == kFileGroup) kept.Add(d);
    for (const cFileDesc& d : chosen) kept.Add(d);
    files = std::move(kept);
}

std::int16_t positionOf(const std::string& name) {
    const FileCollection& files = oFile();
    for (int i = 1; i <= files.Count(); ++i)
        if (files.Item(i).FileName == name) return int16Of(i);
    return 1;
}

}  // namespace

bool projectWindowAvailable() { return fileTable().projectOpen && projectFileFormLoaded(); }

void mnuWinProjectWindow_Click() {
    if (!projectWindowAvailable()) return;
    std::optional<FileCollection> chosen = showProjectFileFormAgain();
    if (!chosen) return;
    std::string shown = fileInView();
    replaceProjectEntries(*chosen);
    rebuildWindowMenu();
    HlydFLProcessSelectedFile(positionOf(shown));
    HlydMSEnableHLYDControls();
}

}  // namespace hlyd
