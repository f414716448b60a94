#include "printing/print_output.h"

#include <optional>

#include "files/file_table.h"
#include "platform/printer.h"
#include "platform/ui.h"
#include "settings/last_folders.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {

// "module.bas" gives "module.pdf"; a name without an extension gets one.
std::string pdfNameFor(const std::string& fileName) {
    std::string name, directory;
    sbFileNameFromDir(fileName, name, directory);
    std::size_t dot = name.find_last_of('.');
    return (dot == std::string::npos ? name : name.substr(0, dot)) + ".pdf";
}

// The project when one is open, else the file on screen.
std::string shownFileName() {
    const FileTableModule& f = fileTable();
    if (f.oFile.Count() == 0) return "Halyard";
    for (int i = 1; i <= f.oFile.Count(); ++i)
        if (f.oFile.Item(i).FileType != kFileSource) return f.oFile.Item(i).FileName;
    int shown = f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count() ? f.wCurrentFile : 1;
    return f.oFile.Item(shown).FileName;
}

}  // namespace

bool askPrintOutputPath(std::string& path) {
    path.clear();
    Printer* printer = currentPrinter();
    if (!printer || printer->deviceName() != kPdfPrinterName) return true;
    FileDialogRequest request;
    request.title = "Print to PDF";
    std::string source = shownFileName();
    request.fileName = pdfNameFor(source);
    // The first PDF of all goes beside its source; later ones where the user put the last.
    const std::string& last = hlydSettings().LastPDFLoc;
    request.directory = last.empty() ? folderOf(source) : last;
    request.filter = "PDF Files (*.pdf)|*.pdf|All Files (*.*)|*.*";
    std::optional<std::string> chosen = theUi().saveFileDialog(request);
    if (!chosen) return false;
    path = *chosen;
    rememberPdfFolder(path);
    return true;
}

}  // namespace hlyd
