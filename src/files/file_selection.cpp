#include "files/file_selection.h"

#include <filesystem>
#include <optional>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/files_state.h"
#include "files/mru.h"
#include "files/project_listing.h"
#include "platform/char_case.h"
#include "platform/ui.h"
#include "settings/last_folders.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::int16_t& status() { return theDebug().BabStatus; }

// The hourglass for as long as the selection works, whichever way it ends.
struct BusyPointer {
    BusyPointer() { theUi().setBusy(true); }
    ~BusyPointer() { theUi().setBusy(false); }
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
};
bool tracing() { return theDebug().TraceApplication; }

const std::string& extensionList(const std::string& kind) {
    const HlydSettings& s = hlydSettings();
    if (kind == "P") return s.ProjectExt;
    if (kind == "R") return s.ResourceExt;
    if (kind == "F") return s.FormExt;
    return s.BasicExt;
}

// "*.BAS;*.CLS;" for "BAS|CLS"; the trailing ";" lets the lists be joined by plain concatenation.
std::string patternsWithSeparator(const std::string& list) {
    std::string out;
    for (const std::string& ext : splitOn(list, '|'))
        if (!ext.empty()) out += "*." + ext + ";";
    return out;
}

std::string withoutLastSemicolon(std::string patterns) {
    if (!patterns.empty() && patterns.back() == ';') patterns.pop_back();
    return patterns;
}

std::string filterBlock(const std::string& caption, const std::string& pattern) {
    return caption + " (" + pattern + ")|" + pattern;
}

// The dialog's answer as full names: either one name per entry, or one text of the directory
// followed by the names, NUL between them.
std::vector<std::string> namesFromDialog(const std::vector<std::string>& chosen) {
    if (chosen.size() != 1) return chosen;
    std::vector<std::string> parts;
    ParseLine(chosen.front(), '\0', parts);
    if (parts.size() <= 1) return parts;
    std::string directory = parts.front();
    if (!directory.empty() && directory.back() != '\\' && directory.back() != '/')
        directory += std::filesystem::path::preferred_separator;
    std::vector<std::string> names;
    for (std::size_t i = 1; i < parts.size(); ++i)
        if (!parts[i].empty()) names.push_back(directory + parts[i]);
    return names;
}

void traceChosenNames(const std::vector<std::string>& names) {
    theLog().LogData("Files...");
    for (const std::string& name : names) theLog().LogData("  |" + name + "|");
}

// True when the first chosen name is open already; it becomes the one the caller shows.
bool firstNameAlreadyOpen(const std::vector<std::string>& names) {
    FileTableModule& f = fileTable();
    if (names.empty()) return false;
    for (int i = 1; i <= f.oFile.Count(); ++i) {
        if (f.oFile.Item(i).FileName != names.front()) continue;
        f.wCurrentFile = int16Of(i - 1);
        return true;
    }
    return false;
}

struct NameKinds {
    int projects = 0;
    int resources = 0;
};

NameKinds sortNames(const std::vector<std::string>& names) {
    NameKinds kinds;
    for (const std::string& name : names) {
        if (fblnValidFileExtension(name, "P")) ++kinds.projects;
        else if (fblnValidFileExtension(name, "R")) ++kinds.resources;
    }
    return kinds;
}

void openResourceFiles(const std::vector<std::string>& names, const NameKinds& kinds) {
    const std::string& title = theAppInfo().Title;
    if (oFile().Count() > 0) {
        std::string text =
                "Resource files were selected.\n\nOther files must be closed before proceeding.\n\n"
                "Click OK to close currently loaded file(s).";
        if (showMessage(text, title, MsgButtons::OKCancel, MsgIcon::Warning) == MsgAnswer::Cancel) return;
        cHLYD::CloseFiles();
    }
    if (kinds.resources != static_cast<int>(names.size())) {
        showMessage("\n\nResource files cannot be selected with other files.", title, MsgButtons::OK, MsgIcon::Warning);
        return;
    }
    oFile().Clear();
    for (const std::string& name : names) {
        theLog().LogData("<Resource: " + name + ">");
        oFile().Add(cFileDesc{name});
    }
    filesState().resourcesOpen = true;
}

bool projectOrResourcesOpen() { return fileTable().projectOpen || filesState().resourcesOpen; }

// What is open gives way to a new choice only once that choice is sure: the dialog, the checks
// and the choice of a project's members can each still end in Cancel, and a Cancel must find the
// window as it was. An open project or set of resource files is replaced by anything; open
// source files only by a project chosen alone.
void closeWhatTheChoiceReplaces(bool oneProjectAlone) {
    FileTableModule& f = fileTable();
    if (projectOrResourcesOpen() || (oneProjectAlone && f.oFile.Count() > 0)) cHLYD::CloseFiles();
    f.projectOpen = false;
    filesState().resourcesOpen = false;
}

// A project goes alone: mixed with source files it is dropped and the source files go on.
// Returns false when nothing is left to open.
bool applyProjectRules(std::vector<std::string>& names, const NameKinds& kinds, bool& projectChosen) {
    projectChosen = kinds.projects > 0;
    if (projectChosen && kinds.projects != static_cast<int>(names.size())) {
        showMessage("A Project-file may not be specified with other files.", theAppInfo().Title, MsgButtons::OK,
                    MsgIcon::Warning);
        // Every project is dropped, not only the first: what stays must be source files only.
        for (std::string& name : names)
            if (fblnValidFileExtension(name, "P")) name.clear();
        projectChosen = false;
    }
    if (projectChosen) return true;
    status() = kStatusOk;
    VBFileValidate(names, true);
    return status() != kStatusCancelled;
}

std::vector<std::string> nonEmpty(const std::vector<std::string>& names) {
    std::vector<std::string> kept;
    for (const std::string& name : names)
        if (!name.empty()) kept.push_back(name);
    return kept;
}

// New source files join the table; names open already are left where they are.
void addSourceFiles(const std::vector<std::string>& names) {
    FileTableModule& f = fileTable();
    for (const std::string& name : names) {
        std::int16_t which = 0;
        FindNameInList(name, which);
        if (status() == kStatusNotInTable) {
            status() = kStatusOk;
            f.oFile.Add(cFileDesc{name, kFileSource});
        }
        f.wCurrentFile = int16Of(f.oFile.Count() - 1);
        if (tracing()) theLog().LogData("<" + name + ">");
    }
}

void rememberOpenFiles() {
    for (const cFileDesc& entry : oFile()) UpdateMRUList(entry.FileName);
    SaveMRU();
    ShowMRU();
}

// Every chosen project is read afresh, even one open now: it may have changed on the disk.
void openProjects(const std::vector<std::string>& names, bool oneProjectAlone) {
    std::vector<cFileDesc> projects;
    for (const std::string& name : names) {
        projects.push_back(cFileDesc{name, kFileProject});
        if (tracing()) theLog().LogData("<" + name + ">");
    }
    bool replaced = false;
    PFParseFile(projects, [&replaced, oneProjectAlone] {
        closeWhatTheChoiceReplaces(oneProjectAlone);
        fileTable().projectOpen = true;
        fileTable().wCurrentFile = int16Of(oFile().Count() - 1);
        replaced = true;
    });
    if (!replaced) {
        status() = kStatusCancelled;  // what was shown stays shown, as it was
        return;
    }
    if (status() == kStatusOk && oFile().Count() > 0) {
        UpdateMRUList(oFile().Item(1).FileName);
        SaveMRU();
        ShowMRU();
    }
    if (oFile().Count() == 0) fileTable().projectOpen = false;
}

void processChosenNames(std::vector<std::string> names) {
    if (names.empty()) {
        if (!projectOrResourcesOpen()) rememberOpenFiles();
        return;
    }
    NameKinds kinds = sortNames(names);
    if (kinds.resources > 0) {
        closeWhatTheChoiceReplaces(false);
        return openResourceFiles(names, kinds);
    }
    bool oneProjectAlone = kinds.projects == 1 && names.size() == 1;
    bool projectChosen = false;
    if (!applyProjectRules(names, kinds, projectChosen)) return;
    names = nonEmpty(names);
    if (names.empty()) {
        status() = kStatusCancelled;
        return;
    }
    if (projectChosen) return openProjects(names, oneProjectAlone);
    closeWhatTheChoiceReplaces(false);
    addSourceFiles(names);
    rememberOpenFiles();
}

}  // namespace

bool fblnValidFileExtension(const std::string& fileName, const std::string& kind) {
    std::size_t point = fileName.find_last_of('.');
    std::string extension = upperCase(point == std::string::npos ? fileName : fileName.substr(point + 1));
    for (const std::string& item : splitOn(extensionList(kind), '|'))
        if (upperCase(item) == extension) return true;
    return false;
}

void FindNameInList(const std::string& fileName, std::int16_t& which) {
    const FileCollection& files = oFile();
    which = 0;
    if (!fileName.empty()) {
        which = int16Of(files.Count() + 1);
        for (int i = 1; i <= files.Count(); ++i) {
            if (files.Item(i).FileName != fileName) continue;
            status() = kStatusInTable;
            which = int16Of(i);
            break;
        }
    }
    if (which == 0 || which > files.Count()) status() = kStatusNotInTable;
}

void ParseLine(const std::string& text, char delimiter, std::vector<std::string>& parts) {
    parts.clear();
    if (text.empty()) return;
    parts = splitOn(text, delimiter);
}

std::string openDialogFilter() {
    const HlydSettings& s = hlydSettings();
    std::string code = patternsWithSeparator(s.BasicExt);
    std::string forms = patternsWithSeparator(s.FormExt);
    std::string projects = patternsWithSeparator(s.ProjectExt);
    std::string resources = withoutLastSemicolon(patternsWithSeparator(s.ResourceExt));
    std::string filter = filterBlock("VB Files", withoutLastSemicolon(forms + code + projects));
    filter += "|" + filterBlock("Forms", withoutLastSemicolon(forms));
    filter += "|" + filterBlock("Code Modules", withoutLastSemicolon(code));
    filter += "|" + filterBlock("Project Files", withoutLastSemicolon(projects));
    if (!resources.empty()) filter += "|" + filterBlock("Resource Files", resources);
    return filter + "|All Files (*.*)|*.*";
}

void GetListFromCommonDialog(std::vector<std::string>& names) {
    TraceScope trace(tracing(), "GetListFromCommonDialog");
    const HlydSettings& s = hlydSettings();
    FileDialogRequest request{"File(s) to Process", openDialogFolder(), "", openDialogFilter(), s.CDLGFileIndex, true};
    if (tracing()) {
        theLog().LogData("FileExtensions...");
        theLog().LogData(request.filter);
    }
    std::optional<std::vector<std::string>> chosen = theUi().openFileDialog(request);
    if (!chosen) {
        status() = kStatusCancelled;
        return;
    }
    names = namesFromDialog(*chosen);
    if (!names.empty()) rememberOpenFolder(names.front());
    if (tracing()) traceChosenNames(names);
}

void GetFilesToProcess(std::int16_t which) {
    TraceScope trace(tracing(), "GetFilesToProcess");
    theDebug().setStatus(kStatusOk, 0);
    std::vector<std::string> names;
    if (which > 0) names.push_back(which <= 7 ? hlydSettings().MRU[which] : std::string());
    else GetListFromCommonDialog(names);
    if (status() == kStatusCancelled) return;
    openChosenFiles(std::move(names));
}

void openChosenFiles(std::vector<std::string> names) {
    theDebug().setStatus(kStatusOk, 0);
    // A member of an open project chosen again opens alone, in place of the project.
    if (!projectOrResourcesOpen() && firstNameAlreadyOpen(names)) return;
    BusyPointer busy;
    processChosenNames(std::move(names));
}

int frmFileList() {
    std::vector<std::string> items;
    for (const cFileDesc& entry : oFile()) items.push_back(entry.FileName);
    std::optional<int> chosen = theUi().chooseFromList("Files", items);
    if (!chosen || *chosen < 0 || *chosen >= static_cast<int>(items.size())) return 0;
    return *chosen + 1;
}

}  // namespace hlyd
