#include "shell/batch_output.h"

#include "base/hlyd_error.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/output_guard.h"
#include "files/run_inputs.h"
#include "html/html_emit.h"
#include "platform/os.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "settings/settings_store.h"
#include "shell/command_line_job.h"

namespace hlyd {

namespace {

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

// --xref asks for the cross-reference in this run only; the settings' own choice comes back.
class CrossReferenceForThisRun {
public:
    explicit CrossReferenceForThisRun(bool wanted) : kept_(hlydSettings().CrossReference) {
        if (wanted) hlydSettings().CrossReference = true;
    }
    ~CrossReferenceForThisRun() { hlydSettings().CrossReference = kept_; }
    CrossReferenceForThisRun(const CrossReferenceForThisRun&) = delete;
    CrossReferenceForThisRun& operator=(const CrossReferenceForThisRun&) = delete;

private:
    bool kept_;
};

// Where the listing goes: the file given, or for the PDF printer <name>.pdf here; nothing for a
// printer that puts ink on paper.
std::string printOutput(const std::string& source) {
    if (!commandLineJob().options.pdfOut.empty()) return os::absolutePath(commandLineJob().options.pdfOut);
    Printer* printer = currentPrinter();
    if (!printer || !printState().PrinterValid || printer->deviceName() != kPdfPrinterName) return {};
    return os::absolutePath(baseName(source) + ".pdf");
}

// The PDF a print of this run would write, before its printer is set up: --pdf, or <name>.pdf
// here when the PDF printer is named or is the one in force.
std::optional<OutputTarget> pdfTarget(const std::string& source) {
    const BatchOptions& options = commandLineJob().options;
    if (!runPrints(options)) return std::nullopt;
    if (!options.pdfOut.empty()) return OutputTarget{os::absolutePath(options.pdfOut), OutputKind::Pdf, "--pdf"};
    Printer* printer = currentPrinter();
    bool pdfInForce = printer && printState().PrinterValid && printer->deviceName() == kPdfPrinterName;
    if (options.printer == kPdfPrinterName || (options.printer.empty() && pdfInForce))
        return OutputTarget{os::absolutePath(baseName(source) + ".pdf"), OutputKind::Pdf,
                            "the PDF printer as <name>.pdf in the current folder"};
    return std::nullopt;
}

}  // namespace

bool commandLineOutputsAllowed(const std::string& source) {
    const BatchOptions& options = commandLineJob().options;
    std::vector<OutputTarget> targets;
    for (const std::optional<OutputTarget>& target : {logOutput(), historyOutput(), pdfTarget(source)})
        if (target) targets.push_back(*target);
    if (!options.htmlOut.empty()) targets.push_back({os::absolutePath(options.htmlOut), OutputKind::Html, "--html"});
    std::vector<std::string> inputs = inputsOfThisRun();
    inputs.push_back(source);
    std::string refusal = outputsRefusal(targets, inputs);
    if (refusal.empty()) return true;
    failJob(kExitUnwritable, refusal);
    return false;
}

void printForCommandLine(const std::string& source) {
    PrinterForThisRun printer(commandLineJob().options);
    if (std::string problem = printer.problem(); !problem.empty()) {
        failJob(kExitUnwritable, "cannot print: " + problem);
        return;
    }
    std::string output = printOutput(source);
    PrintRunRequest request;
    request.outputPath = output;
    request.sourcesOnly = fileTable().projectOpen;
    request.fileBegins = [](const std::string& file) {
        if (!commandLineJob().options.quiet) jobErr() << "halyard: printing " << file << '\n';
    };
    CrossReferenceForThisRun crossReference(commandLineJob().options.crossReference);
    PrintRunResult result = runPrint(request);
    for (const std::string& skipped : result.skipped)
        failJob(kExitUnreadable, "skipped " + skipped + ": cannot be read");
    if (!result.written)
        failJob(kExitUnwritable, "cannot print" + (output.empty() ? "" : " " + output) + ": " + result.error);
    else if (!output.empty()) jobOut() << output << '\n';
}

void exportHtmlForCommandLine() {
    std::string output = os::absolutePath(commandLineJob().options.htmlOut);
    HlydFLProcessSelectedFile(1);
    try {
        if (HTMLEmitAFile()) jobOut() << output << '\n';
        else failJob(kExitUnwritable, "cannot write " + output);
    } catch (const HlydError& e) {
        failJob(kExitUnwritable, "cannot write " + output + ": " + e.Description);
    }
}

}  // namespace hlyd
