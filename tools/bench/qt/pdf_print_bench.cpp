// The PDF printer under a listing's load: a 5 MB module printed the way code printing drives a
// printer (per line a line number and 6 to 10 short tokens in three fonts and colours, the pen
// moved between them, about 60 lines to a page, a heading with a rule on each page), to a
// finished PDF. Prints MB/s of source, the PDF's size against the source, and peak memory.
// A further bench runs the command line's job on a project of 200 members (about 10 MB): MB/s of
// source, and how soon the first page of the first member is finished. And the program's whole
// process on a module, as a user starts it.
// Run: build/tools/bench/hlyd-pdf-print-bench
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <QApplication>
#include <cctype>
#include <chrono>
#include <sstream>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "analysis/basiclan.h"
#include "base/app_info.h"
#include "bench_sources.h"
#include "files/file_table.h"
#include "platform/qt/qt_printer_system.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "settings/settings_store.h"
#include "shell/command_line.h"
#include "platform/qt/qt_printer_adapter.h"
#include "shell/session.h"

namespace {

struct Style {
    const char* font;
    bool bold;
    std::uint32_t colour;
};
const Style kCode{"Courier New", false, 0x000000};
const Style kKeyword{"Courier New", true, 0x800000};
const Style kComment{"Courier New", false, 0x008000};
const Style kNumber{"Arial", false, 0x808080};

bool isKeyword(const std::string& word) {
    static const char* const words[] = {"Dim", "As",    "Public", "Function", "Do",       "While",  "Loop",
                                        "End", "ByVal", "And",    "Long",     "Currency", "Option", "Explicit"};
    for (const char* w : words)
        if (word == w) return true;
    return false;
}

void apply(hlyd::QtPrinter& p, const Style& s) {
    p.setFontName(s.font);
    p.setFontBold(s.bold);
    p.setForeColor(s.colour);
}

// Cuts a line as the tokenizer would, near enough: words, single punctuation, and a comment whole.
std::vector<std::string> tokens(const std::string& line) {
    std::vector<std::string> out;
    std::size_t i = 0;
    while (i < line.size()) {
        if (line[i] == ' ') {
            ++i;
            continue;
        }
        if (line[i] == '\'') {
            out.push_back(line.substr(i));
            break;
        }
        std::size_t j = i;
        if (std::isalnum(static_cast<unsigned char>(line[i]))) {
            while (j < line.size() && std::isalnum(static_cast<unsigned char>(line[j]))) ++j;
        } else {
            ++j;
        }
        out.push_back(line.substr(i, j - i));
        i = j;
    }
    return out;
}

void printListing(hlyd::QtPrinter& p, const std::string& source) {
    const float lineHeight = [&] {
        apply(p, kCode);
        return p.textHeight("X");
    }();
    const float bottom = p.scaleHeight() - 2 * lineHeight;
    float y = bottom;  // the first line opens a page
    int number = 0;
    std::size_t at = 0;
    while (at < source.size()) {
        std::size_t end = source.find("\r\n", at);
        if (end == std::string::npos) end = source.size();
        std::string line = source.substr(at, end - at);
        at = end + 2;
        if (y >= bottom) {
            if (number > 0) p.newPage();
            apply(p, kNumber);
            p.setCurrentX(0);
            p.setCurrentY(0);
            p.print("Commented.bas - page " + std::to_string(p.page()));
            p.line(0, lineHeight * 1.2f, p.scaleWidth(), lineHeight * 1.2f, 0);
            y = lineHeight * 2;
        }
        apply(p, kNumber);
        p.setCurrentX(0);
        p.setCurrentY(y);
        p.print(std::to_string(++number));
        std::size_t indent = line.find_first_not_of(' ');
        p.setCurrentX(720 + p.textWidth(" ") * static_cast<float>(indent == std::string::npos ? 0 : indent));
        bool first = true;
        for (const std::string& token : tokens(line)) {
            apply(p, token[0] == '\'' ? kComment : isKeyword(token) ? kKeyword : kCode);
            if (!first && std::isalnum(static_cast<unsigned char>(token[0])))
                p.setCurrentX(p.currentX() + p.textWidth(" "));
            p.print(token);
            first = false;
        }
        y += lineHeight;
    }
    p.endDoc();
}

long peakKilobytes() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void BM_Print5MBModuleToPdf(benchmark::State& state) {
    const std::string source = hlyd::bench::commentedModule(5u * 1024 * 1024);
    const std::string out = (std::filesystem::temp_directory_path() / "hlyd-pdf-print-bench.pdf").string();
    long before = peakKilobytes();
    std::int32_t pages = 0;
    std::size_t largestPage = 0;
    for (auto _ : state) {
        hlyd::QtPrinter printer;
        printer.beginJob(out);
        printListing(printer, source);
        if (!printer.endJob(true)) state.SkipWithError(printer.jobError().c_str());
        pages = printer.pagesDelivered();
        largestPage = printer.largestPageText();
    }
    double pdfBytes = static_cast<double>(std::filesystem::file_size(out));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.size()));
    state.counters["pages"] = pages;
    state.counters["pdfMB"] = pdfBytes / (1024 * 1024);
    state.counters["pdfToSource"] = pdfBytes / static_cast<double>(source.size());
    state.counters["peakMB"] = static_cast<double>(peakKilobytes()) / 1024;
    state.counters["peakGrowthMB"] = static_cast<double>(peakKilobytes() - before) / 1024;
    state.counters["largestPageKB"] = static_cast<double>(largestPage) / 1024;
    std::filesystem::remove(out);
}
// Wall time: the figure that counts is how soon the finished file is there, synced to the disk.
BENCHMARK(BM_Print5MBModuleToPdf)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();

// The product's own path: a 5 MB module loaded and printed by the print run on the PDF printer,
// with the settings of a first run, from the file on disk to the finished PDF.
void BM_PrintModuleEndToEnd(benchmark::State& state) {
    namespace fs = std::filesystem;
    const std::string source = hlyd::bench::commentedModule(5u * 1024 * 1024);
    const fs::path folder = fs::temp_directory_path() / "hlyd-pdf-end-to-end";
    fs::create_directories(folder / "config");
    const std::string module = (folder / "Commented.bas").string();
    const std::string out = (folder / "Commented.pdf").string();
    std::ofstream(module, std::ios::binary) << source;
    setenv("HLYD_CONFIG_DIR", (folder / "config").c_str(), 1);
    hlyd::loadSettingsAtStartup();
    hlyd::hlydSettings().SaveHYInfo = false;
    hlyd::QtPrinterSystem printers;
    hlyd::setPrinterSystem(&printers);
    hlyd::hlydSettings().CurrentPrinter = "PDF";
    hlyd::InitPrinter();
    long before = peakKilobytes();
    hlyd::PrintRunResult result;
    for (auto _ : state) {
        hlyd::resetFileTable();
        hlyd::oFile().Add({module, hlyd::kFileSource, false, 0, 0});
        hlyd::PrintRunRequest request;
        request.outputPath = out;
        result = hlyd::runPrint(request);
        if (!result.written) state.SkipWithError(result.error.c_str());
    }
    double pdfBytes = static_cast<double>(fs::file_size(out));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.size()));
    state.counters["pdfToSource"] = pdfBytes / static_cast<double>(source.size());
    state.counters["peakGrowthMB"] = static_cast<double>(peakKilobytes() - before) / 1024;
    hlyd::resetPrintState();
    hlyd::setPrinterSystem(nullptr);
    fs::remove_all(folder);
}
BENCHMARK(BM_PrintModuleEndToEnd)->Unit(benchmark::kMillisecond)->Iterations(2)->UseRealTime();

// The whole process as a user runs it: the program started on a 2 MB module with a fresh settings
// folder, to the finished PDF. MB/s of source, start and exit included.
void BM_WholeProcessModuleToPdf(benchmark::State& state) {
    namespace fs = std::filesystem;
    const std::string source = hlyd::bench::commentedModule(2u * 1024 * 1024);
    const fs::path folder = fs::temp_directory_path() / "hlyd-pdf-whole-process";
    fs::create_directories(folder);
    const fs::path module = folder / "Commented.bas", out = folder / "Commented.pdf";
    std::ofstream(module, std::ios::binary) << source;
    const std::string command = "QT_QPA_PLATFORM=offscreen '" HLYD_PROGRAM "' --quiet --pdf '" + out.string() + "' '" +
                                module.string() + "' >/dev/null 2>&1";
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(folder / "config");
        fs::create_directories(folder / "config");
        setenv("HLYD_CONFIG_DIR", (folder / "config").c_str(), 1);
        state.ResumeTiming();
        if (std::system(command.c_str()) != 0) state.SkipWithError("the program failed");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(source.size()));
    state.counters["pdfToSource"] = static_cast<double>(fs::file_size(out)) / static_cast<double>(source.size());
    fs::remove_all(folder);
}
BENCHMARK(BM_WholeProcessModuleToPdf)->Unit(benchmark::kMillisecond)->Iterations(5)->UseRealTime();

// The PDF printer that notes when the first page is finished (its first new page or end).
class FirstPageClock : public hlyd::QtPrinter {
public:
    using Clock = std::chrono::steady_clock;
    explicit FirstPageClock(std::optional<Clock::time_point>& first) : first_(first) {}
    void newPage() override {
        note();
        hlyd::QtPrinter::newPage();
    }
    void endDoc() override {
        note();
        hlyd::QtPrinter::endDoc();
    }

private:
    void note() {
        if (!first_) first_ = Clock::now();
    }
    std::optional<Clock::time_point>& first_;
};

class FirstPageSystem : public hlyd::PrinterSystem {
public:
    std::vector<std::string> printerNames() const override { return {hlyd::kPdfPrinterName}; }
    std::string defaultPrinterName() const override { return hlyd::kPdfPrinterName; }
    std::unique_ptr<hlyd::Printer> open(const std::string&) override { return std::make_unique<FirstPageClock>(first); }
    std::optional<FirstPageClock::Clock::time_point> first;
};

// `halyard --pdf` on a generated project: each member a 52 KB module, in a project file.
std::size_t writeProject(const std::filesystem::path& folder, int members) {
    std::string project = "Type=Exe\r\n";
    std::size_t bytes = 0;
    for (int m = 1; m <= members; ++m) {
        std::string name = "Member" + std::to_string(m);
        std::string source = hlyd::bench::commentedModule(52u * 1024);
        bytes += source.size();
        std::ofstream(folder / (name + ".bas"), std::ios::binary) << source;
        project += "Module=" + name + "; " + name + ".bas\r\n";
    }
    std::ofstream(folder / "Big.vbp", std::ios::binary) << project << "Name=\"Big\"\r\n";
    return bytes;
}

void BM_CommandLineProjectToPdf(benchmark::State& state) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / "hlyd-cmdline-bench";
    fs::remove_all(folder);
    fs::create_directories(folder / "config");
    const std::size_t bytes = writeProject(folder, 200);
    setenv("HLYD_CONFIG_DIR", (folder / "config").c_str(), 1);
    hlyd::loadSettingsAtStartup();
    hlyd::hlydSettings().SaveHYInfo = false;
    FirstPageSystem printers;
    hlyd::setPrinterSystem(&printers);
    hlyd::hlydSettings().CurrentPrinter = hlyd::kPdfPrinterName;
    hlyd::InitPrinter();
    std::ostringstream quiet;
    double firstPageSeconds = 0;
    for (auto _ : state) {
        hlyd::resetFileTable();
        hlyd::resetCommandLineJob();
        hlyd::commandLineJob().options.pdfOut = (folder / "Big.pdf").string();
        hlyd::commandLineJob().options.quiet = true;
        hlyd::commandLineJob().out = &quiet;
        printers.first.reset();
        auto start = FirstPageClock::Clock::now();
        std::string name = (folder / "Big.vbp").string();
        hlyd::HlydCMProcess(name);
        if (hlyd::commandLineJob().exitStatus != 0) state.SkipWithError("the project was not printed");
        if (printers.first) firstPageSeconds = std::chrono::duration<double>(*printers.first - start).count();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
    state.counters["sourceMB"] = static_cast<double>(bytes) / (1024 * 1024);
    state.counters["firstPageMs"] = firstPageSeconds * 1000;
    state.counters["pdfMB"] = static_cast<double>(fs::file_size(folder / "Big.pdf")) / (1024 * 1024);
    hlyd::resetPrintState();
    hlyd::setPrinterSystem(nullptr);
    fs::remove_all(folder);
}
BENCHMARK(BM_CommandLineProjectToPdf)->Unit(benchmark::kMillisecond)->Iterations(1)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    hlyd::initAppInfo(argv[0]);
    hlyd::BabInit();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
