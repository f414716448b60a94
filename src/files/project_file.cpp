#include "files/project_file.h"

#include <utility>

#include "analysis/basiclan_state.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/cut_reports.h"
#include "files/files_state.h"
#include "files/member_paths.h"
#include "platform/char_case.h"
#include "platform/line_reader.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

void growRecordList(std::vector<std::int16_t>& list, std::int16_t& count, std::int16_t lineNumber) {
    incrementInt16(count, "ProcessProjectFile");
    if (count >= static_cast<int>(list.size())) list.resize(list.size() + 5);
    list[count] = lineNumber;
}

// The window's status names the first few; the message box before it has given the counts.
void tellMembersNotFound(const std::string& project, const std::vector<std::string>& missing) {
    constexpr std::size_t kNamed = 3;
    std::string names;
    for (std::size_t i = 0; i < missing.size() && i < kNamed; ++i) names += (i ? ", " : "") + missing[i];
    if (missing.size() > kNamed) names += ", ...";
    std::string count = std::to_string(missing.size()) + (missing.size() == 1 ? " member was" : " members were");
    tellCut(CutKind::MemberMissing, project + ": " + count + " not found and left out (" + names + ")");
}

// The module name of a form-like member: the last word of its first line that holds "Begin".
// The file is a source file, so no line of it is kept beyond the longest a record may be.
std::string formModuleName(cProjectLine& line) {
    LineReader in(static_cast<std::size_t>(kMaxRecordLength));
    if (int reason = in.open(line.WholeFile); reason != 0) {
        line.FileType = kLineNone;
        theLog().LogData("Error processing file " + line.WholeFile + " " + describeSystemError(reason));
        std::string name, dir;
        sbFileNameFromDir(line.WholeFile, name, dir);
        return name;
    }
    while (!in.atEnd()) {
        std::string text(in.readLine());
        if (text.find("Begin") == std::string::npos) continue;
        text = text.substr(0, text.find_last_not_of(' ') + 1);
        std::size_t blank = text.find_last_of(' ');
        return blank == std::string::npos ? text : text.substr(blank + 1);
    }
    return {};
}

}  // namespace

const std::array<const char*, 68>& projectKeywords() {
    static const std::array<const char*, 68> kTable = {"",
                                                       "AUTOINCREMENTVER",
                                                       "AUTOREFRESH",
                                                       "BOUNDSCHECK",
                                                       "CLASS",
                                                       "CODEVIEWDEBUGINFO",
                                                       "COMMAND",
                                                       "COMMAND32",
                                                       "COMPATIBLEEXE",
                                                       "COMPATIBLEEXE32",
                                                       "COMPATIBLEMODE",
                                                       "COMPILATIONTYPE",
                                                       "CONDCOMP",
                                                       "CONTROL",
                                                       "DEBUGSTARTUPCOMPONENT",
                                                       "DEBUGSTARTUPOPTION",
                                                       "DESCRIPTION",
                                                       "DESIGNER",
                                                       "DLLBASEADDRESS",
                                                       "EXENAME",
                                                       "EXENAME32",
                                                       "FAVORPENTIUMPRO",
                                                       "FDIVCHECK",
                                                       "FLPOINTCHECK",
                                                       "FORM",
                                                       "HELPCONTEXTID",
                                                       "HELPFILE",
                                                       "ICONFORM",
                                                       "MAJORVER",
                                                       "MAXNUMBEROFTHREADS",
                                                       "MINORVER",
                                                       "MODULE",
                                                       "NAME",
                                                       "NOALIASING",
                                                       "OBJECT",
                                                       "OPTIMIZATIONTYPE",
                                                       "OVERFLOWCHECK",
                                                       "PATH",
                                                       "PATH32",
                                                       "PROJWINSHOW",
                                                       "PROJWINSIZE",
                                                       "PROPERTYPAGE",
                                                       "REFERENCE",
                                                       "RELATEDDOC",
                                                       "RESFILE16",
                                                       "RESFILE32",
                                                       "RETAINED",
                                                       "REVISIONVER",
                                                       "SERVERSUPPORTFILES",
                                                       "STARTMODE",
                                                       "STARTUP",
                                                       "THREADINGMODEL",
                                                       "THREADPEROBJECT",
                                                       "TITLE",
                                                       "TYPE",
                                                       "UNATTENDED",
                                                       "UNROUNDEDFP",
                                                       "USEEXISTINGBROWSER",
                                                       "USERCONTROL",
                                                       "USERDOCUMENT",
                                                       "VERSIONCOMMENTS",
                                                       "VERSIONCOMPANYNAME",
                                                       "VERSIONCOMPATIBLE",
                                                       "VERSIONCOMPATIBLE32",
                                                       "VERSIONFILEDESCRIPTION",
                                                       "VERSIONLEGALCOPYRIGHT",
                                                       "VERSIONLEGALTRADEMARKS",
                                                       "VERSIONPRODUCTNAME"};
    return kTable;
}

cProjectFiles& oProjectFiles() { return *filesState().projects; }
void resetProjectFiles() { filesState().projects = std::make_unique<cProjectFiles>(); }
std::unique_ptr<cProjectFiles> replaceProjectFiles(std::unique_ptr<cProjectFiles> next) {
    std::swap(filesState().projects, next);
    return next;
}

void ParseFileName(const std::string& file, std::string& drive, std::string& path, std::string& base, std::string& ext,
                   bool& bad) {
    std::string rest = trimSpaces(file);
    if (rest.empty()) {
        bad = true;
        return;
    }
    drive.clear();
    path.clear();
    base.clear();
    ext.clear();
    if (std::size_t colon = rest.find(':'); colon != std::string::npos) {
        drive = rest.substr(0, colon + 1);
        rest = rest.substr(colon + 1);
    }
    // A point in a directory name (as in "..\") is no extension.
    std::size_t separator = rest.find_last_of("\\/");
    std::size_t dot = rest.find_last_of('.');
    if (dot != std::string::npos && (separator == std::string::npos || dot > separator)) {
        ext = rest.substr(dot);
        rest = rest.substr(0, dot);
    }
    separator = rest.find_last_of("\\/");
    if (separator == std::string::npos) {
        base = rest;
    } else {
        path = rest.substr(0, separator + 1);
        base = rest.substr(separator + 1);
    }
}

cProjectFile::cProjectFile() : Classes(11), Forms(11), Modules(11) {}

bool cProjectFile::openForReading(const std::string& fileName, LineReader& in) {
    for (;;) {
        int reason = in.open(fileName);
        if (reason == 0) return true;
        int number = runtimeErrorFromErrno(reason);
        theDebug().setStatus(kStatusProjectUnreadable, number);
        logBlock("VBErr=" + std::to_string(number));
        std::string text =
                "The following error occurred processing " + fileName + ".\n\n" + describeSystemError(reason);
        MsgButtons buttons = number == 53 ? MsgButtons::RetryCancel : MsgButtons::OK;
        if (theUi().messageBox({text, theAppInfo().Title, buttons, MsgIcon::Warning, 1}) != MsgAnswer::Retry)
            return false;
    }
}

void cProjectFile::ProcessProjectFile(const std::string& fileName, std::string formExt, std::string moduleExt) {
    TraceScope trace(theDebug().TraceApplication, "ProcessProjectFile");
    if (fileName.empty()) throw HlydError(kProjectArgumentError, "Invalid FileName", "ProcessProjectFile");
    const std::string& checked = formExt.empty() ? moduleExt : formExt;
    if (!checked.empty() && checked[0] != '.')
        throw HlydError(kProjectArgumentError, "Invalid FileExt", "ProcessProjectFile");
    Dialect = "6";
    FileName = fileName;
    FileType = 1;
    Forms.assign(11, 0);
    Classes.assign(11, 0);
    Modules.assign(11, 0);
    formExt = upperCase(formExt) + ".";
    moduleExt = upperCase(moduleExt) + ".";
    bool bad = false;
    ParseFileName(FileName, FileNameDrive, FileNamePath, FileNameBase, FileNameExt, bad);
    LineReader lines(kLongestProjectLine);
    if (!openForReading(FileName, lines)) return;
    ProjectRecords.clear();
    bool complete = readLines(lines, [&](const std::string& text) {
        cProjectLine line;
        incrementInt16(Records, "ProcessProjectFile");
        line.AsRecord = text;
        line.FileNameBase = FileNameBase;
        line.FileNameDrive = FileNameDrive;
        line.FileNamePath = FileNamePath;
        ParseProjectRecord(line, formExt, moduleExt);
        ProjectRecords.push_back(std::move(line));
        addMember(ProjectRecords.back());
    });
    if (!complete) return;
    if (filesNotFound_ == 0) return;
    std::string text2 = "For the project file " + FileName + "\n" + std::to_string(filesNotFound_) +
                        " files were not found and\n" + std::to_string(filesFound_) + " files were found.";
    if (filesFound_ == 0) {
        theDebug().BabStatus = kStatusNoProjectMember;
        text2 += "\n\nNo further processing will occur.";
    }
    showMessage(text2, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
    tellMembersNotFound(FileName, membersNotFound_);
}

// Files the line: members that exist are counted by kind and keyed; the others stay plain lines.
void cProjectFile::addMember(cProjectLine& line) {
    if (line.FileType < kLineForm || line.FileType > kLineDesigner) return;
    if (!memberExists(line)) {
        membersNotFound_.push_back(line.FileName);
        line.FileType = kLineNone;
        return;
    }
    std::int16_t number = Records;
    if (line.FileType == kLineModule) {
        growRecordList(Modules, ModuleCount, number);
    } else if (line.FileType == kLineClass) {
        growRecordList(Classes, ClassCount, number);
    } else {
        std::string name = formModuleName(line);
        line.VBName = name.empty() ? line.FileNameBase : name;
        growRecordList(Forms, FormCount, number);
    }
    line.Key = std::to_string(line.FileType) + line.VBName;
}

bool cProjectFile::memberExists(cProjectLine& line) {
    if (line.FileNameBase.empty()) line.FileNameBase = FileNameBase;
    if (line.FileNameDrive.empty()) line.FileNameDrive = FileNameDrive;
    if (line.FileNamePath.empty()) line.FileNamePath = FileNamePath;
    if (line.WholeFile.empty())
        line.WholeFile = line.FileName.find(':') != std::string::npos ? line.FileName
                                                                      : FileNameDrive + FileNamePath + line.FileName;
    line.WholeFile = resolveMemberPath(FileNameDrive + FileNamePath, line.WholeFile);
    if (FileExists(line.WholeFile)) {
        ++filesFound_;
        return true;
    }
    line.SyntaxError = true;
    ++filesNotFound_;
    return false;
}

void cProjectFile::ProcessProjectGroupFile(const std::string& fileName) {
    if (fileName.empty()) throw HlydError(kProjectArgumentError, "Invalid FileName", "ProcessProjectGroupFile");
    FileName = fileName;
    FileType = 0;
    bool bad = false;
    ParseFileName(FileName, FileNameDrive, FileNamePath, FileNameBase, FileNameExt, bad);
    LineReader lines(kLongestProjectLine);
    if (!openForReading(FileName, lines)) return;
    readLines(lines, [&](const std::string& text) {
        cProjectLine line;
        line.AsRecord = text;
        incrementInt16(Records, "ProcessProjectGroupFile");
        ProjectRecords.push_back(std::move(line));
    });
}

// A failure inside a line ends the reading of the file; the lines before it are kept.
bool cProjectFile::readLines(LineReader& lines, const std::function<void(const std::string&)>& perLine) {
    int lineNumber = 0;
    while (!lines.atEnd()) {
        std::string text(lines.readLine());
        ++lineNumber;
        try {
            perLine(text);
        } catch (const HlydError& e) {
            std::string report = "The following error occurred reading record\non file " + FileName +
                                 ".\nRemainder of file not processed.\n\n" + e.Description + " at line " +
                                 std::to_string(lineNumber) + "\nLast line read: " + text;
            showMessage(report, theAppInfo().Title, MsgButtons::OKCancel, MsgIcon::Critical);
            theDebug().BabStatus = kStatusProjectUnreadable;
            return false;
        }
    }
    return true;
}

}  // namespace hlyd
