#include "dialogs/pdf_run.h"

#include <QGuiApplication>
#include <clocale>
#include <cstdlib>
#include <filesystem>

#include "base/app_info.h"
#include "dialogs/qt_notes.h"
#include "dialogs/run_end.h"
#include "platform/console_ui.h"
#include "platform/pdf/face_files.h"
#include "platform/qt/face_source.h"
#include "platform/qt/font_configuration.h"
#include "platform/pdf/pdf_printer_system.h"
#include "platform/qt/qt_printer_adapter.h"
#include "settings/window_place.h"
#include "shell/app_start.h"
#include "shell/command_line_job.h"

namespace hlyd {

int runPdfPrint(int& argc, char** argv, const std::string& commandLine) {
    // The PDF printer draws into a file: even where there is a display, speaking to it would only
    // cost the run its start. A platform the user has chosen is kept.
    if (!std::getenv("QT_QPA_PLATFORM")) setenv("QT_QPA_PLATFORM", "offscreen", 1);
    keepOnlyQtFailures();
    // A print whose faces an earlier one found reads them from their files and never needs the
    // font configuration, the dearest part of a short print's start.
    if (loadFaceFiles((std::filesystem::path(settingsDirectory()) / "face-files").string()))
        startWithoutFontConfiguration();
    // Fonts and pages need the graphics' application object, and nothing of the widgets'.
    QGuiApplication app(argc, argv);
    // The application object gives the C library the user's locale; the core reads and writes its
    // numbers (the settings, the PDF's figures) with the C locale's point, as a run on the core does.
    std::setlocale(LC_NUMERIC, "C");
    QGuiApplication::setApplicationName("Halyard");
    // Offscreen, the screen is not the user's: what could be stored of a window's place would be wrong.
    setScreensUnknown(true);
    // Messages go to standard error and are answered at once: nobody is there to see a box.
    ConsoleUi ui;
    if (!commandLineJob().options.htmlOut.empty()) ui.saveAs = commandLineJob().options.htmlOut;
    setUi(&ui);
    PdfPrinterSystem printers([] { return std::make_unique<QtPrinter>(); });
    setPrinterSystem(&printers);
    int rc = Main(commandLine);
    saveFaceFiles();
    return endQtRun(rc);
}

}  // namespace hlyd
