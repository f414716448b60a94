// Analysis throughput (MB/s) and peak memory, on a generated file near the token limit and on the
// examples. Run: build/tools/bench/hlyd-bench
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "analysis/basiclan.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "display/text_search.h"
#include "bench_sources.h"
#include "files/file_loading.h"
#include "files/file_table.h"
#include "files/project_listing.h"
#include "html/html_emit.h"
#include "printing/print_run.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"
#include "platform/console_ui.h"
#include "settings/settings_store.h"
#include "shell/session.h"
#include "xref/name_index.h"

namespace {

// A module of ordinary code: procedures, blocks, declarations, comments; about 500000 tokens.
std::string generatedModule(int targetTokens) {
    std::string s = "Attribute VB_Name = \"Generated\"\r\nOption Explicit\r\n\r\n";
    int tokens = 8;
    for (int p = 0; tokens < targetTokens; ++p) {
        std::string n = std::to_string(p);
        s += "' Procedure " + n + " adds things up\r\n";
        s += "Public Function Compute" + n + "(ByVal count As Long, names() As String) As Long\r\n";
        s += "    Dim i As Long, total As Long\r\n";
        s += "    For i = 1 To count\r\n";
        s += "        If names(i) = \"x\" Then\r\n";
        s += "            total = total + i * 2 ' doubled\r\n";
        s += "        Else\r\n";
        s += "            total = total - Len(names(i)): Debug.Print total\r\n";
        s += "        End If\r\n";
        s += "    Next i\r\n";
        s += "    Compute" + n + " = total\r\n";
        s += "End Function\r\n\r\n";
        tokens += 75;  // what one procedure above yields
    }
    return s;
}

long peakMemoryKb() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

void analyzeText(const std::string& text) {
    hlyd::SourceFile file;
    file.openText(text);
    hlyd::SourceTables& tables = hlyd::theSourceTables();
    hlyd::BabInitFile(tables, "6");
    do {
        hlyd::BabParseRecord(file, tables);
    } while (hlyd::theDebug().BabStatus != hlyd::kStatusEndOfFile &&
             hlyd::theDebug().BabStatus != hlyd::kStatusReadingStopped);
}

void runAnalysis(benchmark::State& state, const std::string& text) {
    for (auto _ : state) analyzeText(text);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(text.size()));
    state.counters["tokens"] = hlyd::theSourceTables().TokenCount;
    state.counters["bytes"] = static_cast<double>(text.size());
    state.counters["peakKB"] = static_cast<double>(peakMemoryKb());
    state.counters["peak/size"] = peakMemoryKb() * 1024.0 / static_cast<double>(text.size());
}

void BM_AnalyseGeneratedNearLimit(benchmark::State& state) {
    static const std::string text = generatedModule(490000);
    runAnalysis(state, text);
}
BENCHMARK(BM_AnalyseGeneratedNearLimit)->Unit(benchmark::kMillisecond);

void BM_AnalyseExamples(benchmark::State& state) {
    static const std::string text = [] {
        std::ostringstream all;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(HLYD_EXAMPLES_DIR)) {
            std::string ext = entry.path().extension().string();
            if (ext == ".bas" || ext == ".cls" || ext == ".frm" || ext == ".ctl")
                all << std::ifstream(entry.path(), std::ios::binary).rdbuf() << "\r\n";
        }
        return all.str();
    }();
    runAnalysis(state, text);
}
BENCHMARK(BM_AnalyseExamples)->Unit(benchmark::kMicrosecond);

// Loading as the program does: the analysis plus token elements and the procedure list.
void BM_LoadLargeFile(benchmark::State& state) {
    static const std::string path = [] {
        std::string file = (std::filesystem::temp_directory_path() / "hlyd-bench-large.bas").string();
        std::ofstream(file, std::ios::binary) << generatedModule(490000);
        return file;
    }();
    hlyd::resetFileTable();
    hlyd::oFile().Add({path, hlyd::kFileSource, false, 0, 0});
    for (auto _ : state) hlyd::ProcessSelectedFile(1);
    auto size = std::filesystem::file_size(path);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(size));
    state.counters["procs"] = static_cast<double>(hlyd::yProc().size());
    state.counters["peakKB"] = static_cast<double>(peakMemoryKb());
}
BENCHMARK(BM_LoadLargeFile)->Unit(benchmark::kMillisecond);

// A project in a folder of its own, of `count` modules named `member` and a number, beside
// `count` files named `file` and a number: the same names for members that are there.
std::string benchProject(const std::string& folder, const std::string& member, const std::string& file, int count) {
    namespace fs = std::filesystem;
    fs::path dir = fs::temp_directory_path() / folder;
    fs::create_directories(dir);
    std::ofstream vbp(dir / "Big.vbp", std::ios::binary);
    vbp << "Type=Exe\r\n";
    for (int i = 1; i <= count; ++i) {
        std::string n = std::to_string(i);
        vbp << "Module=" << member << n << "; " << member << n << ".bas\r\n";
        std::ofstream(dir / (file + n + ".bas"), std::ios::binary)
                << "Attribute VB_Name = \"" << file << n << "\"\r\nOption Explicit\r\n";
    }
    return (dir / "Big.vbp").string();
}

void readProject(benchmark::State& state, const std::string& path) {
    for (auto _ : state) {
        hlyd::resetFileTable();
        hlyd::PFParseFile({hlyd::cFileDesc{path, hlyd::kFileProject, true, 0, 0}});
    }
    state.counters["files"] = static_cast<double>(hlyd::oFile().Count());
}

// A project of 500 members, every one of them checked on the disk.
void BM_ReadProjectOf500Members(benchmark::State& state) {
    static const std::string path = benchProject("hlyd-bench-project", "Mod", "Mod", 500);
    readProject(state, path);
}
BENCHMARK(BM_ReadProjectOf500Members)->Unit(benchmark::kMillisecond);

// A project of 10000 members, none of them there, in a folder of 10000 other files: each missing
// member is looked for with its letter case mended, in the one listing of the folder. When the
// folder was read again for each member this took 94 s; with one listing per read, 0.16 s.
void BM_ReadProjectOf10000MissingMembers(benchmark::State& state) {
    static const std::string path = benchProject("hlyd-bench-missing", "Gone", "Here", 10000);
    readProject(state, path);
    state.counters["BabStatus"] = hlyd::theDebug().BabStatus;
}
BENCHMARK(BM_ReadProjectOf10000MissingMembers)->Unit(benchmark::kMillisecond)->Iterations(1);

// A project of 500 modules of real-shaped code, 36 KB each (the mean member of a large project
// of other authors), indexed whole: every member loaded and analysed, its names gathered and
// every use resolved across the project.
void BM_IndexProjectOf500Members(benchmark::State& state) {
    namespace fs = std::filesystem;
    static const std::string path = [] {
        fs::path dir = fs::temp_directory_path() / "hlyd-bench-xref";
        fs::create_directories(dir);
        std::string module = hlyd::bench::realShapedModule(36 * 1024);
        std::ofstream vbp(dir / "Big.vbp", std::ios::binary);
        vbp << "Type=Exe\r\n";
        for (int i = 1; i <= 500; ++i) {
            std::string n = "Shaped" + std::to_string(i);
            vbp << "Module=" << n << "; " << n << ".bas\r\n";
            std::ofstream(dir / (n + ".bas"), std::ios::binary) << "Attribute VB_Name = \"" << n << "\"\r\n"
                                                                << module.substr(module.find('\n') + 1);
        }
        return (dir / "Big.vbp").string();
    }();
    std::size_t names = 0;
    for (auto _ : state) {
        hlyd::resetFileTable();
        hlyd::PFParseFile({hlyd::cFileDesc{path, hlyd::kFileProject, true, 0, 0}});
        names = hlyd::indexOpenFiles().names.size();
    }
    state.counters["names"] = static_cast<double>(names);
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * 500 * 36 * 1024);
}
BENCHMARK(BM_IndexProjectOf500Members)->Unit(benchmark::kMillisecond)->Iterations(3);

// The save dialog of an export answers with a fixed path.
class ExportUi : public hlyd::ConsoleUi {
public:
    std::optional<std::string> saveFileDialog(const hlyd::FileDialogRequest&) override {
        return (std::filesystem::temp_directory_path() / "hlyd-bench-export.html").string();
    }
};

// A module shaped as real code, written once for the benches that read a file: 4.5 MB, as its
// denser tokens would pass the token limit at 5 MB.
constexpr std::size_t kRealShapedBytes = 4608u * 1024;
const std::string& realShapedFile() {
    static const std::string path = [] {
        std::string file = (std::filesystem::temp_directory_path() / "hlyd-bench-real.bas").string();
        std::ofstream(file, std::ios::binary) << hlyd::bench::realShapedModule(kRealShapedBytes);
        return file;
    }();
    return path;
}

void BM_AnalyseRealShaped(benchmark::State& state) {
    static const std::string text = hlyd::bench::realShapedModule(kRealShapedBytes);
    runAnalysis(state, text);
}
BENCHMARK(BM_AnalyseRealShaped)->Unit(benchmark::kMillisecond);

// Loading and writing the document of the module, end to end.
void BM_HtmlExportRealShaped(benchmark::State& state) {
    const std::string& path = realShapedFile();
    ExportUi ui;
    hlyd::setUi(&ui);
    hlyd::resetFileTable();
    hlyd::oFile().Add({path, hlyd::kFileSource, false, 0, 0});
    for (auto _ : state) {
        hlyd::ProcessSelectedFile(1);
        hlyd::HTMLEmitAFile();
    }
    hlyd::setUi(nullptr);
    auto size = std::filesystem::file_size(path);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(size));
    state.counters["status"] = hlyd::theDebug().BabStatus;
    state.counters["tokens"] = hlyd::theSourceTables().TokenCount;
    state.counters["tokens/KB"] = hlyd::theSourceTables().TokenCount * 1024.0 / static_cast<double>(size);
}
BENCHMARK(BM_HtmlExportRealShaped)->Unit(benchmark::kMillisecond);

#ifdef HLYD_PROGRAM_PATH
// The program itself, as a user runs it: start, load, write the document, end. Fresh settings
// each time, and no display.
void BM_HtmlWholeProcessRealShaped(benchmark::State& state) {
    const std::string& path = realShapedFile();
    std::string out = (std::filesystem::temp_directory_path() / "hlyd-bench-whole.html").string();
    std::string config = (std::filesystem::temp_directory_path() / "hlyd-bench-config").string();
    std::string command = "rm -rf '" + config + "' && mkdir '" + config + "' && HLYD_CONFIG_DIR='" + config +
                          "' QT_QPA_PLATFORM=offscreen '" HLYD_PROGRAM_PATH "' --quiet --html '" + out + "' '" + path +
                          "' >/dev/null";
    int failures = 0;
    for (auto _ : state) failures += std::system(command.c_str()) != 0;
    auto size = std::filesystem::file_size(path);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(size));
    state.counters["failures"] = failures;
}
BENCHMARK(BM_HtmlWholeProcessRealShaped)->Unit(benchmark::kMillisecond)->UseRealTime();
#endif

// Printing the module on the recording printer, load to last page; the calls go nowhere, so
// that the figure is the layout's and the page flow's own.
void BM_PrintRecordingRealShaped(benchmark::State& state) {
    const std::string& path = realShapedFile();
    std::int64_t events = 0;
    hlyd::RecordingPrinterSystem printers("Recorder", [&events](const hlyd::PrintEvent&) { ++events; });
    hlyd::hlydSettings().CurrentPrinter = "Recorder";
    hlyd::hlydSettings().SaveHYInfo = false;
    hlyd::setPrinterSystem(&printers);
    hlyd::InitPrinter();
    hlyd::resetFileTable();
    hlyd::oFile().Add({path, hlyd::kFileSource, false, 0, 0});
    std::int32_t pages = 0;
    for (auto _ : state) hlyd::runPrint(hlyd::PrintRunRequest{});
    pages = printers.printer() ? printers.printer()->pagesDelivered() : 0;
    hlyd::setPrinterSystem(nullptr);
    auto size = std::filesystem::file_size(path);
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(size));
    state.counters["pages"] = static_cast<double>(pages) / static_cast<double>(state.iterations());
    state.counters["calls"] = static_cast<double>(events) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_PrintRecordingRealShaped)->Unit(benchmark::kMillisecond);

// One search of the lines of a loaded 5 MB module, as F3 runs it: a word that stands only near the
// end (the whole file is passed), in any case, as a whole word; and each place of a common word for
// the list of all files. Each must take well under 50 ms.
void runSearch(benchmark::State& state, const std::string& query, bool all) {
    static const std::string text = [] {
        std::string module = hlyd::bench::commentedModule(5u * 1024 * 1024);
        return module + "' needle at the end\r\n";
    }();
    static const bool loaded = (analyzeText(text), true);
    (void)loaded;
    const hlyd::RecordTexts& texts = *hlyd::theSourceTables().Texts;
    hlyd::SearchOptions options{false, true};
    std::size_t hits = 0;
    for (auto _ : state) {
        if (all) hits = hlyd::findAll(texts, query, options).size();
        else hits = hlyd::findFrom(texts, query, options, {1, 0}, true).found ? 1 : 0;
        benchmark::DoNotOptimize(hits);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) * static_cast<int64_t>(texts.buffer().size()));
    state.counters["hits"] = static_cast<double>(hits);
}

void BM_FindNext5MB(benchmark::State& state) { runSearch(state, "NEEDLE", false); }
BENCHMARK(BM_FindNext5MB)->Unit(benchmark::kMillisecond);

void BM_FindAll5MB(benchmark::State& state) { runSearch(state, "remainingReceiptAmount", true); }
BENCHMARK(BM_FindAll5MB)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    hlyd::initAppInfo(argv[0]);
    hlyd::BabInit();
    hlyd::hlydSettings().BasicExt = "BAS|CLS";
    hlyd::hlydSettings().FormExt = "FRM|CTL|PAG|DOB|DSR";
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("peak memory of the run: %ld KB\n", peakMemoryKb());
    return 0;
}
