#include "shell/command_line.h"

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/open_for_run.h"
#include "files/project_file.h"
#include "platform/os.h"
#include "platform/ui.h"
#include "printing/printer_fonts.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/batch_cuts.h"
#include "shell/batch_output.h"
#include "shell/command_line_job.h"
#include "shell/error_report.h"

namespace hlyd {

namespace {

std::vector<std::string> splitAtBars(const std::string& list) {
    std::vector<std::string> parts;
    std::size_t from = 0;
    for (std::size_t bar = list.find('|'); ; bar = list.find('|', from)) {
        std::string part = list.substr(from, bar == std::string::npos ? std::string::npos : bar - from);
        if (!part.empty()) parts.push_back(part);
        if (bar == std::string::npos) return parts;
        from = bar + 1;
    }
}

bool hasExtension(const std::string& name) {
    std::size_t slash = name.find_last_of("\\/");
    std::size_t dot = name.find_last_of('.');
    return dot != std::string::npos && (slash == std::string::npos || dot > slash);
}

// The project has told how many; a script wants to know which.
void tellMissingMembers() {
    cProjectFiles& projects = oProjectFiles();
    for (int p = 1; p <= projects.Count(); ++p)
        for (const std::string& member : projects.Item(p).membersNotFound())
            failJob(kExitUnreadable, "skipped " + member + " of " + projects.Item(p).FileName + ": not found");
}

void printNamedFile(const std::string& name) {
    std::string source = os::absolutePath(name);
    openFileForRun(source);
    tellMissingMembers();
    if (oFile().Count() == 0) {
        failJob(kExitUnreadable, "cannot read " + name);
        return;
    }
    if (!commandLineOutputsAllowed(source)) return;
    const BatchOptions& options = commandLineJob().options;
    if (!options.htmlOut.empty()) exportHtmlForCommandLine();
    if (options.htmlOut.empty() || !options.pdfOut.empty() || !options.printer.empty()) printForCommandLine(source);
}

}  // namespace

std::string withSourceExtension(const std::string& name) {
    if (hasExtension(name) || os::fileInfo(name).exists()) return name;
    const HlydSettings& s = hlydSettings();
    // The settings write extensions in capitals; files on this system mostly carry them in
    // small letters.
    for (const std::string& ext : splitAtBars(s.BasicExt + "|" + s.FormExt))
        for (const std::string& candidate : {name + "." + lowerCaseAscii(ext), name + "." + ext})
            if (os::fileInfo(candidate).exists()) return candidate;
    return name;
}

// A name that begins with "/" is an absolute path here; a switch such as "/x" that is no file
// is turned away for not existing.
bool isRejectedCommandLineName(const std::string& name) {
    return name.empty() || name[0] == '-' || name.find_first_of("*?") != std::string::npos;
}

void HlydCMProcess(std::string& FileName) {
    bool finished = false;
    trapErrors("HlydCMProcess", [&FileName, &finished] {
        TraceScope trace(theDebug().TraceApplication, "HlydCMProcess");
        CutsToStandardError cuts;
        if (theDebug().TraceApplication) theLog().LogData(" CommandLine=<" + hlydMain().CommandLine + ">");
        mainWindow().disableControls();
        theUi().setBusy(true);
        FileName = withSourceExtension(FileName);
        HlydPAValidateFonts(false);
        if (!isRejectedCommandLineName(FileName) && os::fileInfo(FileName).exists()) printNamedFile(FileName);
        mainWindow().enableControls();
        theUi().setBusy(false);
        finished = true;
    });
    // The error report has told what happened; a script learns it from the status.
    if (!finished && commandLineJob().exitStatus == 0) commandLineJob().exitStatus = kExitFault;
}

}  // namespace hlyd
