#include "view_render.h"

#include <cerrno>

#include <QBuffer>
#include <QByteArray>
#include <ostream>

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "dialogs/view_hooks.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "files/file_selection.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/project_listing.h"
#include "files/run_inputs.h"
#include "json_lines.h"
#include "tool_errors.h"
#include "platform/console_ui.h"
#include "platform/os.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/qt_text.h"
#include "platform/qt/screen_metrics.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// As the Open command does it: a project or group is read with its members, a source file
// joins the table; then the one after wCurrentFile is shown.
void openAsTheWindowDoes(const std::string& file) {
    if (fblnValidFileExtension(file, "P")) {
        PFParseFile({cFileDesc{file, kFileProject, true, 0, 0}});
        FileTableModule& files = fileTable();
        if (files.oFile.Count() == 0) return;
        HlydFLProcessSelectedFile(1);
        return;
    }
    oFile().Add(cFileDesc{file, kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
}

void report(const RenderRequest& request, std::ostream& out) {
    const EmitterState& view = emitterState();
    const MainWindowModel& w = mainWindow();
    out << JsonObject()
                    .add("type", "render")
                    .addPath("out", request.out)
                    .add("width", request.width)
                    .add("height", request.height)
                    .add("FirstRecord", view.FirstRecord)
                    .add("LastRecord", view.LastRecord)
                    .add("lblRecord", w.lblRecord)
                    .addPath("Caption", w.Caption)
                    .add("Min", w.vsbDisplay.Min)
                    .add("Max", w.vsbDisplay.Max)
                    .add("Value", w.vsbDisplay.Value)
                    .str()
        << '\n';
}

// The PNG replaces the output whole, never an input of this run, a device or a FIFO; a link is
// written through to its target. 0 or the reason.
int writePng(const QImage& image, const std::string& out, const std::string& input) {
    std::vector<std::string> inputs = inputsOfThisRun();
    inputs.push_back(input);
    if (int problem = outputTargetProblem(out, inputs); problem != 0) return problem;
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) return EIO;
    return os::replaceFile(out, std::string_view(png.constData(), static_cast<std::size_t>(png.size())));
}

}  // namespace

int renderView(const RenderRequest& request, std::ostream& out, std::ostream& err) {
    if (int problem = os::regularFileProblem(request.file); problem != 0) {
        err << "hlyd-render: cannot open " << request.file << ": " << os::errorText(problem) << '\n';
        return 2;
    }
    QSize screen = screenSizeTwips();
    setScreenSizeTwips(screen.width(), screen.height());
    queryLocaleSeparators();
    loadSettingsAtStartup();
    if (!loadKeywordTable("hlyd-render", err)) return 2;
    ConsoleUi ui;
    setUi(&ui);
    ImageSurface picDisplay(QSize(request.width, request.height));
    setDisplaySurface(&picDisplay);
    installViewHooks();
    HlydDAValidateFonts();
    emitterState().ViewHeight = request.height * picDisplay.twipsPerPixelY();
    openAsTheWindowDoes(request.file);
    if (request.first != 1) {
        std::int32_t record = request.first;
        HlydDSEmitRequestedData(record);
    }
    int problem = writePng(picDisplay.image(), request.out, request.file);
    setDisplaySurface(nullptr);
    setUi(nullptr);
    if (problem != 0) {
        err << "hlyd-render: cannot write " << request.out << ": " << os::errorText(problem) << '\n';
        return 3;
    }
    report(request, out);
    return 0;
}

}  // namespace hlyd
