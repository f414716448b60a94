#include "shell/command_line.h"

#include "base/c_debug.h"
#include "base/c_log.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/open_for_run.h"
#include "files/project_file.h"
#include "platform/os.h"
#include "platform/ui.h"
#include "printing/printer_fonts.h"
#include "shell/app_start.h"
#include "shell/batch_cuts.h"
#include "shell/batch_output.h"
#include "shell/command_line_job.h"
#include "shell/command_line_names.h"
#include "shell/error_report.h"
#include "shell/site_output.h"

namespace hlyd {

namespace {

// The project has told how many; a script wants to know which. Each project read replaces the
// list of the one before, so it is told at once.
void tellMissingMembers() {
    cProjectFiles& projects = oProjectFiles();
    for (int p = 1; p <= projects.Count(); ++p)
        for (const std::string& member : projects.Item(p).membersNotFound())
            failJob(kExitUnreadable, "skipped " + member + " of " + projects.Item(p).FileName + ": not found");
}

void printNamedFiles(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        openFileForRun(os::absolutePath(name));
        tellMissingMembers();
    }
    if (oFile().Count() == 0) {
        failJob(kExitUnreadable, "cannot read " + names.front());
        return;
    }
    // The first file names the job's default PDF, as it does when only one is given.
    std::string first = os::absolutePath(names.front());
    if (!commandLineOutputsAllowed(first)) return;
    const BatchOptions& options = commandLineJob().options;
    // The site goes first: its pages are known only once it is planned, and a refusal of one
    // must leave every output unwritten.
    if (!options.siteOut.empty() && !exportSiteForCommandLine(first)) return;
    if (!options.htmlOut.empty()) exportHtmlForCommandLine();
    if (runPrints(options)) printForCommandLine(first);
}

}  // namespace

void HlydCMProcess(const std::vector<std::string>& names) {
    bool finished = false;
    trapErrors("HlydCMProcess", [&names, &finished] {
        TraceScope trace(theDebug().TraceApplication, "HlydCMProcess");
        CutsToStandardError cuts;
        if (theDebug().TraceApplication) theLog().LogData(" CommandLine=<" + hlydMain().CommandLine + ">");
        mainWindow().disableControls();
        theUi().setBusy(true);
        HlydPAValidateFonts(false);
        std::vector<std::string> files = filesToPrint(names);
        // One document, or one site, holds one file, project or group.
        const BatchOptions& options = commandLineJob().options;
        if (files.size() > 1 && (!options.htmlOut.empty() || !options.siteOut.empty()))
            failJob(kExitUsage, std::string(options.htmlOut.empty() ? "--site shows" : "--html exports") +
                                        " one file, project or group; " + std::to_string(files.size()) + " are named");
        else if (!files.empty()) printNamedFiles(files);
        mainWindow().enableControls();
        theUi().setBusy(false);
        finished = true;
    });
    // The error report has told what happened; a script learns it from the status.
    if (!finished && commandLineJob().exitStatus == 0) commandLineJob().exitStatus = kExitFault;
}

void HlydCMProcess(std::string& FileName) {
    FileName = withSourceExtension(FileName);
    HlydCMProcess(std::vector<std::string>{FileName});
}

}  // namespace hlyd
