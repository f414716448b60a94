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

// Messages answered as on a terminal, and the job's words. Until the first page is finished they
// are told only once the run is sure to end here, in the order they came: a run the print part does
// again says them again. By the end of the first page every face the settings draw in has been asked
// for, so that from there on the run tells them as they come (a long project shows its progress);
// a face found missing later still sends the run to the print part, which then says again what was
// told since.
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
        if (live_) return ConsoleUi::messageBox(request);
        keepWords();
        held_.push_back({{}, request});
        return windowlessAnswer(request, nullptr);
    }
    void errorReport(const std::string& text) override {
        tellHeld();
        ConsoleUi::errorReport(text);
    }
    // From here on the job's words and the messages go out as they come.
    void tellFromNowOn() {
        if (live_) return;
        tellHeld();
        live_ = true;
        commandLineJob().err = nullptr;
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
    bool live_ = false;
};

// The PDF printer on faces from their files, which tells `ui` to go on as the first page is done.
class FirstPageTellingPrinter : public FilePdfPrinter {
public:
    explicit FirstPageTellingPrinter(HeldConsoleUi& ui) : ui_(ui) {}
    void newPage() override {
        FilePdfPrinter::newPage();
        ui_.tellFromNowOn();
    }

private:
    HeldConsoleUi& ui_;
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
    PdfPrinterSystem printers([&ui] { return std::make_unique<FirstPageTellingPrinter>(ui); });
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
