#include "print_dump.h"

#include <cmath>
#include <cstdio>
#include <ostream>

#include "files/file_show.h"
#include "files/file_table.h"
#include "files/open_for_run.h"
#include "json_lines.h"
#include "tool_errors.h"
#include "platform/console_ui.h"
#include "platform/os.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_info.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// Every message the user would see becomes a line of the dump; the box answers as nobody's would.
class DumpUi : public ConsoleUi {
public:
    explicit DumpUi(std::ostream& out) : out_(out) {}
    MsgAnswer messageBox(const MessageBoxRequest& request) override {
        out_ << "{\"kind\":\"message\",\"text\":" << jsonString(request.text) << "}\n";
        return windowlessAnswer(request, nullptr);
    }

private:
    std::ostream& out_;
};

std::string number(double value) {
    if (value == std::floor(value) && std::fabs(value) < 1e15) return std::to_string(static_cast<long long>(value));
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%.6g", value);
    return buffer;
}

std::string colour(std::uint32_t bgr) {
    char buffer[8];
    std::snprintf(buffer, sizeof buffer, "#%02X%02X%02X", bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
    return buffer;
}

std::string eventJson(const PrintEvent& e) {
    switch (e.kind) {
        case PrintEvent::PageStart:
            return JsonObject("page")
                    .add("doc", e.doc)
                    .add("page", e.page)
                    .add("printed", e.printed)
                    .add("type", e.type)
                    .str();
        case PrintEvent::Text:
            return JsonObject("text")
                    .add("doc", e.doc)
                    .add("page", e.page)
                    .addRaw("x", number(e.x1))
                    .addRaw("y", number(e.y1))
                    .add("font", e.font)
                    .addRaw("size", number(e.size))
                    .add("bold", e.bold)
                    .add("italic", e.italic)
                    .add("underline", e.underline)
                    .add("colour", colour(e.colour))
                    .add("text", e.text)
                    .str();
        case PrintEvent::Line:
            return JsonObject("line")
                    .add("doc", e.doc)
                    .add("page", e.page)
                    .addRaw("x1", number(e.x1))
                    .addRaw("y1", number(e.y1))
                    .addRaw("x2", number(e.x2))
                    .addRaw("y2", number(e.y2))
                    .add("width", e.width)
                    .add("colour", colour(e.colour))
                    .str();
        case PrintEvent::Destination:
            return JsonObject("destination")
                    .add("doc", e.doc)
                    .add("page", e.page)
                    .addRaw("y", number(e.y1))
                    .add("name", e.text)
                    .add("title", e.title)
                    .add("level", e.level)
                    .str();
        case PrintEvent::Link:
            return JsonObject("link")
                    .add("doc", e.doc)
                    .add("page", e.page)
                    .addRaw("x1", number(e.x1))
                    .addRaw("y1", number(e.y1))
                    .addRaw("x2", number(e.x2))
                    .addRaw("y2", number(e.y2))
                    .add("name", e.text)
                    .str();
        case PrintEvent::EndDoc: return JsonObject("enddoc").add("doc", e.doc).str();
        case PrintEvent::KillDoc: return JsonObject("killdoc").add("doc", e.doc).str();
    }
    return "{}";
}

void writePrinterLine(std::ostream& out, Printer& printer) {
    cPrinterInfo info;
    out << "{\"kind\":\"printer\",\"DeviceName\":" << jsonString(printer.deviceName())
        << ",\"Width\":" << printer.width() << ",\"Height\":" << printer.height()
        << ",\"ScaleLeft\":" << printer.scaleLeft() << ",\"ScaleTop\":" << printer.scaleTop()
        << ",\"ScaleWidth\":" << printer.scaleWidth() << ",\"ScaleHeight\":" << printer.scaleHeight()
        << ",\"XOffset\":" << info.XOffset() << ",\"YOffset\":" << info.YOffset()
        << ",\"PixelsPerInch\":" << printer.caps().PixelsPerInchX << "}\n";
}

}  // namespace

bool parsePageRange(const std::string& text, PrintDumpOptions& options) {
    std::size_t dash = text.find('-');
    if (dash == std::string::npos || dash == 0 || dash + 1 >= text.size()) return false;
    if (text.find_first_not_of("0123456789-") != std::string::npos || text.find('-', dash + 1) != std::string::npos)
        return false;
    options.pageRange = true;
    options.firstPage = std::stoi(text.substr(0, dash));
    options.lastPage = std::stoi(text.substr(dash + 1));
    return true;
}

int dumpPrint(const PrintDumpOptions& options, std::ostream& out, std::ostream& err) {
    if (unreadableFile("hlyd-dump", options.file, err)) return 2;
    queryLocaleSeparators();
    loadSettingsAtStartup();
    std::string name = hlydSettings().CurrentPrinter.empty() ? "Recorder" : hlydSettings().CurrentPrinter;
    hlydSettings().CurrentPrinter = name;
    RecordingPrinterSystem printers(name, [&out](const PrintEvent& e) { out << eventJson(e) << '\n'; });
    DumpUi ui(out);
    setUi(&ui);
    setPrinterSystem(&printers);
    InitPrinter();
    Printer* printer = currentPrinter();
    if (printer) writePrinterLine(out, *printer);
    openFileForRun(os::absolutePath(options.file));
    int status = 0;
    if (oFile().Count() == 0) {
        err << "hlyd-dump: " << options.file << " gave nothing to print\n";
        status = 1;
    } else {
        HlydFLProcessSelectedFile(1);
        PrintRunRequest request;
        request.pageRange = options.pageRange;
        request.firstPage = options.firstPage;
        request.lastPage = options.lastPage;
        request.startPage = options.startPage;
        request.procNames = options.procs;
        PrintRunResult result = runPrint(request);
        auto* recorder = dynamic_cast<RecordingPrinter*>(printer);
        out << "{\"kind\":\"end\",\"PrintStatus\":" << result.printStatus
            << ",\"pages\":" << (recorder ? recorder->pagesDelivered() : 0)
            << ",\"documents\":" << (recorder ? recorder->documents() : 0) << "}\n";
        for (const std::string& skipped : result.skipped) err << "hlyd-dump: skipped " << skipped << '\n';
    }
    setPrinterSystem(nullptr);
    setUi(nullptr);
    return status;
}

}  // namespace hlyd
