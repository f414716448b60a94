// The view offscreen, with the real image surface: opening a large file and showing its first
// screen, and a redraw after a scroll of a view 1080 pixels high. Run: build/tools/bench/hlyd-view-bench
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "analysis/basiclan.h"
#include "bench_sources.h"
#include "dialogs/view_hooks.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "platform/qt/image_surface.h"
#include "settings/settings_store.h"
#include "shell/app_info.h"
#include "shell/main_window_model.h"

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

}  // namespace

int main(int argc, char** argv) {
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
