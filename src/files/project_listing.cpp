#include "files/project_listing.h"

#include <algorithm>

#include "analysis/file_validation.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/main_window_model.h"
#include "files/member_paths.h"
#include "files/files_state.h"
#include "files/member_choice.h"
#include "files/project_file.h"
#include "platform/line_reader.h"
#include "platform/os.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

std::string pointList(const std::string& barList) {
    std::string list = "." + barList;
    for (char& c : list)
        if (c == '|') c = '.';
    return list;
}

std::string directoryOf(const std::string& name) {
    std::size_t at = name.find_last_of("\\/");
    return at == std::string::npos ? std::string() : name.substr(0, at + 1);
}

// A group file names its member projects, one to a line after "="; `position` is its own. The
// group's own entry waits in `groups` until the members are chosen.
void expandGroup(std::vector<cFileDesc>& projects, std::size_t i, std::size_t position, LineReader& in,
                 std::vector<cFileDesc>& groups) {
    cFileDesc& group = projects[i];
    group.FileType = kFileGroup;
    std::int16_t which = int16Of(static_cast<std::int64_t>(position), "PFParseFile");
    groups.push_back({group.FileName, kFileGroup, true, which, which});
    std::string directory = directoryOf(group.FileName);
    std::int16_t count = 0;
    while (!in.atEnd()) {
        std::string text(in.readLine());
        std::size_t eq = text.find('=');
        if (eq == std::string::npos) continue;
        std::string member = resolveMemberPath(directory, directory + text.substr(eq + 1));
        incrementInt16(count, "PFParseFile");
        projects.push_back({member, kFileProject, true, 0, count});
    }
}

// A file is known by its device and number, so another spelling of its name is no escape.
bool seenBefore(const std::vector<os::FileInfo>& walked, const os::FileInfo& info) {
    for (const os::FileInfo& seen : walked)
        if (seen.sameFileAs(info)) return true;
    return false;
}

void tellReadFailure(const std::string& name) {
    std::string text =
            theDebug().BabStatusDetail == 1 ? "Unable to open " + name + "." : "Error occurred reading " + name + ".";
    showMessage(text, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

// Expands the groups among the projects, in place. A group that lists itself, or two groups that
// list each other, would be expanded without end: a group met again is left out, with a message.
// False when a project or group cannot be read: the user hears of it at once, and the listing ends.
bool findGroups(std::vector<cFileDesc>& projects, std::vector<cFileDesc>& groups) {
    std::vector<cFileDesc> kept;
    std::vector<os::FileInfo> walked;
    for (std::size_t i = 0; i < projects.size(); ++i) {
        os::FileInfo key = os::fileInfo(projects[i].FileName);
        if (seenBefore(walked, key)) {
            showMessage("The project group " + projects[i].FileName + " is already being read; it is skipped.",
                        theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
            continue;
        }
        LineReader in(kLongestProjectLine);
        if (!cProjectFile::openForReading(projects[i].FileName, in)) {
            tellReadFailure(projects[i].FileName);
            return false;
        }
        std::string first(in.atEnd() ? std::string_view() : in.readLine());
        if (first.find('=') == std::string::npos && first.compare(0, 7, "VBGROUP") == 0) {
            walked.push_back(key);
            expandGroup(projects, i, kept.size() + 1, in, groups);
        }
        kept.push_back(projects[i]);
    }
    projects = std::move(kept);
    return true;
}

// Returns false when the user cancelled; counts the members that are no text source.
bool checkMembers(cProjectFile& project, const std::vector<std::int16_t>& lines, int count, int& binary) {
    for (int k = 1; k <= count; ++k) {
        if (lines[k] == 0) continue;
        cProjectLine& line = project.line(lines[k]);
        std::vector<std::string> names{line.WholeFile};
        VBFileValidate(names, false);
        if (theDebug().BabStatus == kStatusCancelled) return false;
        if (names[0].empty()) {
            ++binary;
            line.FileType = kLineNone;
        }
    }
    return true;
}

void tellBinaryMembers(int binary) {
    std::string text = std::to_string(binary) + " Code/Form Files in the Project File " +
                       "are binary or couldn't be opened. \n\nIf the files are Visual Basic 3.0 binary files " +
                       "and you want to be able to display or print them, " +
                       "then within Visual Basic choose File / Save As ... and check the Save As Text box.";
    showMessage(text, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

// False when the listing must stop: the project could not be read, or the user cancelled.
// `binary` counts the members that are no text source over the whole listing.
bool readProject(const cFileDesc& entry, const std::string& formExt, const std::string& moduleExt, int& binary) {
    auto project = std::make_unique<cProjectFile>();
    project->ProcessProjectFile(entry.FileName, formExt, moduleExt);
    cDebug& d = theDebug();
    if (d.BabStatus == kStatusProjectUnreadable) {
        tellReadFailure(entry.FileName);
        return false;
    }
    if (d.BabStatus == kStatusProjectSyntax) {
        showMessage("Syntax error on file " + entry.FileName + "\nreading record #" + std::to_string(project->Records),
                    theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
        return false;
    }
    if (d.BabStatus == kStatusNoProjectMember) return false;
    if (!checkMembers(*project, project->Forms, project->FormCount, binary) ||
        !checkMembers(*project, project->Classes, project->ClassCount, binary) ||
        !checkMembers(*project, project->Modules, project->ModuleCount, binary))
        return false;
    if (binary > 0) tellBinaryMembers(binary);
    oProjectFiles().Add(std::move(project));
    return true;
}

// Reads every project and group and lets the user choose the members in the Project File
// dialog; the choice, or nothing when the listing ends early (a project cannot be read,
// or the user cancelled).
std::optional<MemberChoice> readAndChoose(std::vector<cFileDesc>& projects, std::vector<cFileDesc>& groups) {
    const HlydSettings& s = hlydSettings();
    std::string moduleExt = pointList(s.BasicExt);
    std::string formExt = pointList(s.FormExt);
    if (!findGroups(projects, groups)) return std::nullopt;
    int binary = 0;
    for (const cFileDesc& entry : projects) {
        if (entry.FileType == kFileProject) {
            if (!readProject(entry, formExt, moduleExt, binary)) return std::nullopt;
        } else if (entry.FileType == kFileGroup) {
            auto group = std::make_unique<cProjectFile>();
            group->ProcessProjectGroupFile(entry.FileName);
            oProjectFiles().Add(std::move(group));
        }
    }
    if (oProjectFiles().Count() == 0) return std::nullopt;
    return filesState().chooseMembers("Project File - " + oProjectFiles().Item(1).FileName);
}

}  // namespace

void PFParseFile(std::vector<cFileDesc> projects, const std::function<void()>& beforeAdding) {
    TraceScope trace(theDebug().TraceApplication, "PFParseFile");
    DirectoryListingScope listings;  // each folder of the members is read once for the whole walk
    // The listing in force stays whole until the new one is chosen: a Cancel goes back to it.
    std::unique_ptr<cProjectFiles> previous = replaceProjectFiles(std::make_unique<cProjectFiles>());
    std::vector<cFileDesc> groups;
    std::optional<MemberChoice> choice = readAndChoose(projects, groups);
    if (!choice) {
        replaceProjectFiles(std::move(previous));
        return;
    }
    if (beforeAdding) beforeAdding();  // closes what was open, and the form it kept with it
    for (cFileDesc& group : groups) oFile().Add(std::move(group));
    for (const cFileDesc& entry : choice->chosen) oFile().Add(entry);
    filesState().projectFileForm = std::move(choice->form);
}

void VBFileValidate(std::vector<std::string>& names, bool canOverride) {
    cDebug& d = theDebug();
    for (std::string& name : names) {
        if (trimSpaces(name).empty()) continue;
        std::string dialect;
        std::string file = name;
        BabValidateFile(file, dialect, canOverride);
        if (d.BabStatus == kStatusDeviceGivenUp || d.BabStatus == kStatusFileNotFound) {
            std::string text = "There are errors in processing";
            if (d.BabStatus == kStatusFileNotFound) text += "\nFile: " + file + "\nWas Not Found";
            text += "\n\nDo you want to cancel processing?";
            name.clear();
            if (showMessage(text, theAppInfo().Title, MsgButtons::YesNo, MsgIcon::Question, 2) == MsgAnswer::Yes) {
                d.BabStatus = kStatusCancelled;
                return;
            }
        } else if (d.BabStatus == kStatusReadingStopped) {
            if (d.BabStatusDetail == kDetailReadFailure) {
                std::string text = file + "\nis not a Visual Basic source-file and cannot be processed.";
                // A caller that cannot override sums these files up in one box of its own.
                if (canOverride) showMessage(text, theAppInfo().Title, MsgButtons::OKCancel, MsgIcon::Warning);
                else logBlock(text);
                name.clear();
            } else if (canOverride) {
                const std::string& title = theAppInfo().Title;
                std::string text = file + "\nis not a text mode Visual Basic source file.\n\n" +
                                   "If this is a Visual Basic 3 binary mode file, resave it in Visual Basic 3 " +
                                   "by using the File/Save File As menu item with the Save as Text box checked.  \n\n" +
                                   "If this file is from another dialect of Basic, " + title +
                                   " can attempt to process it.\n\nDo you want to process it anyway?";
                if (showMessage(text, title, MsgButtons::YesNo, MsgIcon::Question) == MsgAnswer::No) {
                    if (d.TraceApplication) theLog().LogData("File removed=" + file);
                    name.clear();
                    d.BabStatus = kStatusCancelled;
                } else {
                    d.BabStatus = kStatusOk;
                }
            } else {
                name.clear();
            }
        }
        d.setStatus(kStatusOk, 0);
    }
}

void HlydPFProcess() {
    MainWindowModel& w = mainWindow();
    if (w.vsbDisplay.Value != 1) w.vsbDisplay.Value = 1;
    w.emitRequestedData();
}

}  // namespace hlyd
