#include "dialogs/qt_application.h"

#include <QApplication>
#include <QLabel>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>

#include "dialogs/frm_error_info.h"
#include "dialogs/frm_splash.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/qt_notes.h"
#include "files/main_window_model.h"
#include "platform/console_ui.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/qt_printer_system.h"
#include "dialogs/run_end.h"
#include "platform/qt/qt_ui.h"
#include "platform/qt/screen_metrics.h"
#include "platform/surface.h"
#include "settings/settings_store.h"
#include "settings/window_place.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"
#include "shell/start_mode.h"
#include "shell/window_display.h"

namespace hlyd {

namespace {

struct WindowedForms {
    std::unique_ptr<FrmSplash> splash;
    std::unique_ptr<HlydWindow> window;
};

WindowedForms forms;

void showWindowAsSaved(HlydWindow& window) {
    switch (hlydSettings().WindowState) {
        case 1: window.showMinimized(); break;
        case 2: window.showMaximized(); break;
        default: window.show(); break;
    }
    window.raise();
    window.activateWindow();
}

QtUi* qtUiInForce() { return dynamic_cast<QtUi*>(&theUi()); }

// The settings keep sizes in twips, as the window's place; an empty size is the dialog's own.
QSize pixelsOf(const std::array<std::int32_t, 2>& twips, ImageSurface& screen) {
    if (twips[0] <= 0 || twips[1] <= 0) return {};
    return {twips[0] / screen.twipsPerPixelX(), twips[1] / screen.twipsPerPixelY()};
}

std::array<std::int32_t, 2> twipsOf(QSize pixels, ImageSurface& screen) {
    if (!pixels.isValid() || pixels.isEmpty()) return {};
    return {pixels.width() * screen.twipsPerPixelX(), pixels.height() * screen.twipsPerPixelY()};
}

void installHooks() {
    WindowedRun& run = windowedRun();
    run.showSplash = [](const std::string& user, const std::string& company) {
        forms.splash = std::make_unique<FrmSplash>(user, company);
        forms.splash->showCentred();
    };
    run.raiseSplash = [] {
        if (forms.splash) forms.splash->raise();
    };
    run.closeSplash = [] { forms.splash.reset(); };
    run.loadMainWindow = [] {
        forms.window = std::make_unique<HlydWindow>();
        setDisplaySurface(&forms.window->picDisplay());
        if (QtUi* ui = qtUiInForce()) {
            ui->setParentWindow(forms.window.get());
            ui->beforeEvents = [w = forms.window.get()] {
                w->lblRecord()->setText(QString::fromUtf8(mainWindow().lblRecord.c_str()));
                w->lblStatus()->setText(QString::fromUtf8(mainWindow().lblStatus.c_str()));
            };
        }
        forms.window->restoreFromSettings();
        if (QtUi* ui = qtUiInForce()) ui->fileListSize = pixelsOf(hlydSettings().FileList, forms.window->picDisplay());
    };
    run.showMainWindow = [] {
        if (!forms.window) return;
        if (!forms.window->isVisible()) {
            showWindowAsSaved(*forms.window);
        } else {
            // The splash held the focus while it was up; the window takes it back when ready.
            forms.window->raise();
            forms.window->activateWindow();
        }
        forms.window->refreshFromModel();
    };
    run.hideMainWindow = [] {
        if (forms.window) forms.window->hide();
    };
    run.storeWindowState = [] {
        if (!forms.window) return;
        forms.window->storeIntoSettings();
        if (QtUi* ui = qtUiInForce()) hlydSettings().FileList = twipsOf(ui->fileListSize, forms.window->picDisplay());
    };
    run.unloadForms = [] {
        forms.splash.reset();
        if (forms.window) forms.window->hide();
        QApplication::quit();
    };
}

}  // namespace

void installWindowedRun() { installHooks(); }

// Nothing of the window layer may outlive the application object.
void uninstallWindowedRun() {
    windowedRun() = WindowedRun{};
    setDisplaySurface(nullptr);
    resetMainWindow();
    if (QtUi* ui = qtUiInForce()) {
        ui->beforeEvents = nullptr;
        ui->setParentWindow(nullptr);
    }
    forms.window.reset();
    forms.splash.reset();
}

HlydWindow* windowedMainWindow() { return forms.window.get(); }

namespace {

// A run that shows no window needs no display: on a machine without one (a server, a build job)
// it draws offscreen, unless the user has chosen a platform.
void drawOffscreenWithoutDisplay(std::int32_t mode) {
    if (mode == kStartStandalone || mode == kStartIdeMode) return;
    if (std::getenv("QT_QPA_PLATFORM")) return;
    // The PDF printer draws into a file: even where there is a display, speaking to it would only
    // cost the run its start.
    const BatchOptions& options = commandLineJob().options;
    bool pdfPrinter = !options.pdfOut.empty() || options.printer == kPdfPrinterName;
    if (!pdfPrinter && (std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY"))) return;
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
}

bool windowed(std::int32_t mode) { return mode == kStartStandalone || mode == kStartIdeMode; }

// The window system ends the process when the display named does not answer: the user hears its
// words and how to print without a window, and a script gets the status of a refused run.
QtMessageHandler handlerBeforeDisplay = nullptr;
void displayGivenUp(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (type != QtFatalMsg) {
        if (handlerBeforeDisplay) handlerBeforeDisplay(type, context, text);
        else std::fprintf(stderr, "%s\n", qPrintable(text));
        return;
    }
    std::fprintf(stderr, "%s\nhalyard: the window needs a display.\n%s", qPrintable(text), noDisplayHint().c_str());
    std::fflush(stderr);
    std::_Exit(kExitNoDisplay);
}

}  // namespace

int runWindowed(int& argc, char** argv, const std::string& commandLine) {
    std::int32_t mode = decideStartMode(kStartStandalone, commandLine);
    drawOffscreenWithoutDisplay(mode);
    if (windowed(mode)) {
        if (std::string problem = noDisplayProblem(std::getenv); !problem.empty()) {
            std::fputs(problem.c_str(), stderr);
            return kExitNoDisplay;
        }
        handlerBeforeDisplay = qInstallMessageHandler(displayGivenUp);
    }
    if (mode == kStartCommandLineFile || mode == kStartInit) keepOnlyQtFailures();
    QApplication app(argc, argv);
    if (windowed(mode)) qInstallMessageHandler(handlerBeforeDisplay);
    QApplication::setApplicationName("Halyard");
    bool windowless = mode == kStartCommandLineFile;
    // A run that shows no window draws offscreen, on a screen that is not the user's: what it could
    // store of the window's place would be wrong, so it stores none.
    if (windowless) {
        setScreensUnknown(true);
    } else {
        QSize screen = screenSizeTwips();
        setScreenSizeTwips(screen.width(), screen.height());
        setScreenAreasTwips(screenAreasInTwips());
    }
    // A run that works from the command line shows no window: its messages go to standard error
    // and are answered at once, so that nobody is left waiting on a box that no one sees.
    QtUi windowUi;
    windowUi.errorReportDialog = showErrorInfo;
    ConsoleUi consoleUi;
    if (!commandLineJob().options.htmlOut.empty()) consoleUi.saveAs = commandLineJob().options.htmlOut;
    setUi(windowless ? static_cast<Ui*>(&consoleUi) : &windowUi);
    // The system's printers and the PDF printer; with no print service the PDF printer alone.
    QtPrinterSystem printers;
    setPrinterSystem(&printers);
    // A run without a window builds none: the start goes the way of the core's own windowless run.
    if (!windowless) installWindowedRun();
    int rc = Main(commandLine);
    // With no form loaded ("/init" returns before any) nothing could ever end the event loop.
    bool formLoaded = forms.window || forms.splash;
    if (rc == 0 && !hlydMain().ApplicationEnding && formLoaded) rc = app.exec();
    uninstallWindowedRun();
    return endQtRun(rc);
}

}  // namespace hlyd
