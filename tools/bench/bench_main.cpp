// Analysis throughput (MB/s) and peak memory, on a generated file near the token limit and on the
// examples. Run: build/tools/bench/hlyd-bench
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "analysis/basiclan.h"
#include "shell/app_info.h"
#include "shell/c_debug.h"

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
    } while (hlyd::theDebug().BabStatus != 11 && hlyd::theDebug().BabStatus != 4);
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

}  // namespace

int main(int argc, char** argv) {
    hlyd::initAppInfo(argv[0]);
    hlyd::BabInit();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    std::printf("peak memory of the run: %ld KB\n", peakMemoryKb());
    return 0;
}
