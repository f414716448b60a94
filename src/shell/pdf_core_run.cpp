#include "shell/pdf_core_run.h"

#include <cstdio>
#include <filesystem>
#include <iostream>
#include <sstream>
#include <vector>

#include "base/app_info.h"
#include "platform/console_ui.h"
#include "platform/pdf/face_files.h"
#include "platform/pdf/file_pdf_printer.h"
#include "platform/pdf/pdf_printer_system.h"
#include "printing/print_state.h"
#include "settings/window_place.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"

namespace hlyd {

namespace {

// Messages answered as on a terminal, and the job's words, but told only once the run is sure to
// end here, in the order they came: a run the print part does again says them again.
class HeldConsoleUi : public ConsoleUi {
public:
    HeldConsoleUi() {
        commandLineJob().out = &out_;
        commandLineJob().err = &err_;
    }
    ~HeldConsoleUi() override {
        commandLineJob().out = nullptr;
        commandLineJob().err = nullptr;
    }
    MsgAnswer messageBox(const MessageBoxRequest& request) override {
        keepWords();
        held_.push_back({{}, request});
        return windowlessAnswer(request, nullptr);
    }
    void errorReport(const std::string& text) override {
        tellHeld();
        ConsoleUi::errorReport(text);
    }
    void tellHeld() {
        keepWords();
        for (const Held& held : held_) {
            if (held.words.empty()) ConsoleUi::messageBox(held.request);
            else std::cerr << held.words << std::flush;
        }
        held_.clear();
        std::cout << out_.str() << std::flush;
        out_.str({});
    }

private:
    struct Held {
        std::string words;  // of the job's error stream; else the message box
        MessageBoxRequest request;
    };
    void keepWords() {
        if (err_.str().empty()) return;
        held_.push_back({err_.str(), {}});
        err_.str({});
    }
    std::ostringstream out_, err_;
    std::vector<Held> held_;
};

int endRun(int rc) {
    resetPrintState();
    setPrinterSystem(nullptr);
    setUi(nullptr);
    setScreensUnknown(false);
    return rc != 0 ? rc : commandLineJob().exitStatus;
}

}  // namespace

std::optional<int> runPdfOnCore(const BatchOptions& options) {
    if (!loadFaceFiles((std::filesystem::path(settingsDirectory()) / "face-files").string())) {
        forgetFaceFiles();
        return std::nullopt;
    }
    commandLineJob().options = options;
    HeldConsoleUi ui;
    if (!options.htmlOut.empty()) ui.saveAs = options.htmlOut;
    setUi(&ui);
    PdfPrinterSystem printers([] { return std::make_unique<FilePdfPrinter>(); });
    setPrinterSystem(&printers);
    // No screen is the user's here either: what could be stored of a window's place would be wrong.
    setScreensUnknown(true);
    try {
        int rc = Main(options.commandLine);
        ui.tellHeld();
        return endRun(rc);
    } catch (const FacesUnanswered&) {
        // The printer goes with the print state, and its file, never committed, with it.
        endRun(0);
        forgetFaceFiles();
        return std::nullopt;
    }
}

}  // namespace hlyd
