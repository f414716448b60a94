#include "pdf_render.h"

#include <ostream>

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "files/file_table.h"
#include "files/open_for_run.h"
#include "files/run_inputs.h"
#include "json_lines.h"
#include "tool_errors.h"
#include "platform/console_ui.h"
#include "platform/os.h"
#include "platform/qt/qt_printer_system.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// Everything the run read, so that the output is none of them.
std::vector<std::string> filesRead(const std::string& input) {
    std::vector<std::string> inputs = inputsOfThisRun();
    inputs.push_back(input);
    return inputs;
}

int print(const PdfRequest& request, std::ostream& out, std::ostream& err) {
    std::string source = os::absolutePath(request.file);
    openFileForRun(source);
    if (oFile().Count() == 0) {
        err << "hlyd-render: " << request.file << " gave nothing to print\n";
        return 2;
    }
    if (int problem = outputTargetProblem(request.out, filesRead(source)); problem != 0) {
        err << "hlyd-render: cannot write " << request.out << ": " << os::errorText(problem) << '\n';
        return 3;
    }
    PrintRunRequest run;
    run.outputPath = os::absolutePath(request.out);
    PrintRunResult result = runPrint(run);
    for (const std::string& skipped : result.skipped) err << "hlyd-render: skipped " << skipped << '\n';
    if (!result.written) {
        err << "hlyd-render: cannot write " << request.out << ": " << result.error << '\n';
        return 3;
    }
    out << JsonObject()
                    .add("type", "print")
                    .addPath("out", request.out)
                    .add("printer", request.printer)
                    .add("PrintStatus", result.printStatus)
                    .str()
        << '\n';
    return 0;
}

}  // namespace

int renderPdf(const PdfRequest& request, std::ostream& out, std::ostream& err) {
    if (int problem = os::regularFileProblem(request.file); problem != 0) {
        err << "hlyd-render: cannot open " << request.file << ": " << os::errorText(problem) << '\n';
        return 2;
    }
    queryLocaleSeparators();
    loadSettingsAtStartup();
    if (!loadKeywordTable("hlyd-render", err)) return 2;
    ConsoleUi ui;
    setUi(&ui);
    QtPrinterSystem printers;
    setPrinterSystem(&printers);
    hlydSettings().CurrentPrinter = request.printer;
    InitPrinter();
    int status = print(request, out, err);
    resetPrintState();
    setPrinterSystem(nullptr);
    setUi(nullptr);
    return status;
}

}  // namespace hlyd
