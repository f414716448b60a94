#include "shell/command_line.h"

#include <iostream>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/open_for_run.h"
#include "files/project_file.h"
#include "files/run_inputs.h"
#include "html/html_emit.h"
#include "platform/os.h"
#include "platform/ui.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "printing/printer_start.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/error_report.h"

namespace hlyd {

namespace {

CommandLineJob job;

std::ostream& out() { return job.out ? *job.out : std::cout; }
std::ostream& err() { return job.err ? *job.err : std::cerr; }

void fail(int status, const std::string& message) {
    err() << "halyard: " << message << '\n';
    if (job.exitStatus == 0) job.exitStatus = status;
}

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

std::string baseName(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

// The printer of the options, set up for this run only: the user's own choice stays in the
// settings. It is set up afresh even when it is the one in force, since a start that found the
// settings' printer gone has switched printing off.
class PrinterForThisRun {
public:
    explicit PrinterForThisRun(const BatchOptions& options)
        : wanted_(!options.pdfOut.empty() ? kPdfPrinterName : options.printer), kept_(hlydSettings().CurrentPrinter) {
        if (wanted_.empty()) return;
        PrinterSystem* system = printerSystem();
        std::unique_ptr<Printer> printer = system ? system->open(wanted_) : nullptr;
        if (!printer) return;
        installOpenedPrinter(std::move(printer));
        HlydPAProcessSetupRequest(false);
    }
    ~PrinterForThisRun() { hlydSettings().CurrentPrinter = kept_; }
    PrinterForThisRun(const PrinterForThisRun&) = delete;
    PrinterForThisRun& operator=(const PrinterForThisRun&) = delete;

    // Empty when the printer asked for is there (or none was asked for).
    std::string problem() const {
        Printer* printer = currentPrinter();
        if (wanted_.empty() || (printer && printer->deviceName() == wanted_)) return {};
        return "no printer is named " + wanted_;
    }

private:
    std::string wanted_;
    std::string kept_;
};

// Where the listing goes: the file given, or for the PDF printer <name>.pdf here; nothing for a
// printer that puts ink on paper.
std::string printOutput(const std::string& source) {
    if (!job.options.pdfOut.empty()) return os::absolutePath(job.options.pdfOut);
    Printer* printer = currentPrinter();
    if (!printer || !printState().PrinterValid || printer->deviceName() != kPdfPrinterName) return {};
    return os::absolutePath(baseName(source) + ".pdf");
}

bool outputAllowed(const std::string& output, const std::string& source) {
    std::vector<std::string> inputs = inputsOfThisRun();
    inputs.push_back(source);
    int problem = outputTargetProblem(output, inputs);
    if (problem == 0) return true;
    fail(kExitUnwritable, "cannot write " + output + ": " + os::errorText(problem));
    return false;
}

void printListing(const std::string& source) {
    PrinterForThisRun printer(job.options);
    if (std::string problem = printer.problem(); !problem.empty()) {
        fail(kExitUnwritable, "cannot print: " + problem);
        return;
    }
    std::string output = printOutput(source);
    if (!output.empty() && !outputAllowed(output, source)) return;
    PrintRunRequest request;
    request.outputPath = output;
    request.sourcesOnly = fileTable().projectOpen;
    request.fileBegins = [](const std::string& file) {
        if (!job.options.quiet) err() << "halyard: printing " << file << '\n';
    };
    PrintRunResult result = runPrint(request);
    for (const std::string& skipped : result.skipped) fail(kExitUnreadable, "skipped " + skipped + ": cannot be read");
    if (!result.written) fail(kExitUnwritable, "cannot print" + (output.empty() ? "" : " " + output) + ": " + result.error);
    else if (!output.empty()) out() << output << '\n';
}

// The document of the file itself: for a project, its listing with its members.
void exportHtml() {
    std::string output = os::absolutePath(job.options.htmlOut);
    HlydFLProcessSelectedFile(1);
    try {
        if (HTMLEmitAFile()) out() << output << '\n';
    } catch (const HlydError& e) {
        fail(kExitUnwritable, "cannot write " + output + ": " + e.Description);
    }
}

// The project has told how many; a script wants to know which.
void tellMissingMembers() {
    cProjectFiles& projects = oProjectFiles();
    for (int p = 1; p <= projects.Count(); ++p)
        for (const std::string& member : projects.Item(p).membersNotFound())
            fail(kExitUnreadable, "skipped " + member + " of " + projects.Item(p).FileName + ": not found");
}

void printNamedFile(const std::string& name) {
    std::string source = os::absolutePath(name);
    openFileForRun(source);
    tellMissingMembers();
    if (oFile().Count() == 0) {
        fail(kExitUnreadable, "cannot read " + name);
        return;
    }
    const BatchOptions& options = job.options;
    if (!options.htmlOut.empty()) exportHtml();
    if (options.htmlOut.empty() || !options.pdfOut.empty() || !options.printer.empty()) printListing(source);
}

}  // namespace

CommandLineJob& commandLineJob() { return job; }

std::string withSourceExtension(const std::string& name) {
    if (hasExtension(name) || os::fileInfo(name).exists()) return name;
    const HlydSettings& s = hlydSettings();
    for (const std::string& ext : splitAtBars(s.BasicExt + "|" + s.FormExt))
        if (os::fileInfo(name + "." + ext).exists()) return name + "." + ext;
    return name;
}
void resetCommandLineJob() { job = CommandLineJob{}; }

// A name that begins with "/" is an absolute path here; a switch such as "/x" that is no file
// is turned away for not existing.
bool isRejectedCommandLineName(const std::string& name) {
    return name.empty() || name[0] == '-' || name.find_first_of("*?") != std::string::npos;
}

void HlydCMProcess(std::string& FileName) {
    trapErrors("HlydCMProcess", [&FileName] {
        TraceScope trace(theDebug().TraceApplication, "HlydCMProcess");
        if (theDebug().TraceApplication) theLog().LogData(" CommandLine=<" + hlydMain().CommandLine + ">");
        mainWindow().disableControls();
        theUi().setBusy(true);
        FileName = withSourceExtension(FileName);
        HlydPAValidateFonts(false);
        if (!isRejectedCommandLineName(FileName) && os::fileInfo(FileName).exists()) printNamedFile(FileName);
        mainWindow().enableControls();
        theUi().setBusy(false);
    });
}

}  // namespace hlyd
