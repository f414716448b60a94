// The view offscreen, with the real image surface: opening a large file and showing its first
// screen, a redraw after a scroll of a view 1080 pixels high, and a project listing with one very
// long line, wrapped over thousands of lines. Run: build/tools/bench/hlyd-view-bench
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "analysis/basiclan.h"
#include "base/app_info.h"
#include "bench_sources.h"
#include "dialogs/view_hooks.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/project_file.h"
#include "files/project_listing.h"
#include "platform/qt/image_surface.h"
#include "settings/settings_store.h"
#include "shell/session.h"

namespace {

const std::string& largeFile() {
    static const std::string path = [] {
        std::string file = (std::filesystem::temp_directory_path() / "hlyd-view-bench.bas").string();
        std::ofstream(file, std::ios::binary) << hlyd::bench::commentedModule(5u * 1024 * 1024);
        return file;
    }();
    return path;
}

struct View {
    hlyd::ImageSurface picDisplay{QSize(1920, 1080)};
    View() {
        hlyd::setDisplaySurface(&picDisplay);
        hlyd::installViewHooks();
        hlyd::HlydDAValidateFonts();
        hlyd::emitterState().ViewHeight = 1080 * picDisplay.twipsPerPixelY();
    }
    ~View() { hlyd::setDisplaySurface(nullptr); }
};

void openFirstScreen() {
    hlyd::resetFileTable();
    hlyd::resetEmitterState();
    hlyd::oFile().Add({largeFile(), hlyd::kFileSource, false, 0, 0});
    hlyd::HlydFLProcessSelectedFile(1);
}

void BM_Open5MBAndShowFirstScreen(benchmark::State& state) {
    View view;
    for (auto _ : state) openFirstScreen();
    state.counters["records"] = hlyd::theSourceTables().RecordCount;
    state.counters["shownUpTo"] = hlyd::emitterState().LastRecord;
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(largeFile()));
}
BENCHMARK(BM_Open5MBAndShowFirstScreen)->Unit(benchmark::kMillisecond)->MinTime(3);

void BM_RedrawAfterScroll1080(benchmark::State& state) {
    View view;
    openFirstScreen();
    int step = 0;
    for (auto _ : state) {
        const hlyd::ScrollBarModel& bar = hlyd::mainWindow().vsbDisplay;
        int target = 1 + (step++ * 37) % std::max(1, bar.Max - 200);
        hlyd::setScrollValue(target);
        benchmark::DoNotOptimize(hlyd::emitterState().FirstRecord);
    }
    state.counters["linesShown"] = hlyd::emitterState().LastRecord - hlyd::emitterState().FirstRecord + 1;
}
BENCHMARK(BM_RedrawAfterScroll1080)->Unit(benchmark::kMillisecond);

// A project whose Title line is `kilobytes` long: the listing wraps it over thousands of lines.
const std::string& longLineProject(std::int64_t kilobytes) {
    static std::map<std::int64_t, std::string> made;
    std::string& path = made[kilobytes];
    if (!path.empty()) return path;
    std::filesystem::path dir = std::filesystem::temp_directory_path();
    std::ofstream(dir / "hlyd-view-bench-member.bas", std::ios::binary) << "Attribute VB_Name = \"Member\"\r\n";
    path = (dir / ("hlyd-view-bench-long" + std::to_string(kilobytes) + ".vbp")).string();
    std::string title(static_cast<std::size_t>(kilobytes) * 1024, 'x');
    for (std::size_t at = 7; at < title.size(); at += 8) title[at] = ' ';
    std::ofstream(path, std::ios::binary) << "Type=Exe\r\nModule=Member; hlyd-view-bench-member.bas\r\nTitle=\""
                                          << title << "\"\r\nName=\"Long\"\r\n";
    return path;
}

// The split of a long line measured the whole rest of it for every piece: on this machine 100 KB
// took 1.4 s and 400 KB 37 s (quadratic). Measuring each piece once: 60 ms, 227 ms, and 1.24 s
// for 2 MB, linear.
void BM_ProjectWithALongLineFirstScreen(benchmark::State& state) {
    View view;
    const std::string& project = longLineProject(state.range(0));
    for (auto _ : state) {
        hlyd::resetFileTable();
        hlyd::resetProjectFiles();
        hlyd::resetEmitterState();
        hlyd::PFParseFile({hlyd::cFileDesc{project, hlyd::kFileProject, true, 0, 0}});
        hlyd::HlydFLProcessSelectedFile(1);
        benchmark::DoNotOptimize(hlyd::emitterState().LastRecord);
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * 1024);
}
BENCHMARK(BM_ProjectWithALongLineFirstScreen)->Arg(100)->Arg(400)->Arg(2048)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    hlyd::installProgramSession();
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    hlyd::initAppInfo(argv[0]);
    hlyd::hlydSettings() = hlyd::HlydSettings{};
    hlyd::loadSettingsAtStartup();
    hlyd::BabInit();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
