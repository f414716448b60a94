#include "html/site_command.h"

#include <filesystem>
#include <optional>

#include "base/app_info.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/output_guard.h"
#include "html/site_names.h"
#include "html/site_writer.h"
#include "platform/ui.h"
#include "settings/last_folders.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// The dialog names the site's index page: the folder it lands in is the site's. A file dialog
// rather than a folder dialog, so that the user sees the page that is opened afterwards.
std::optional<std::string> chosenIndexPage() {
    FileDialogRequest request;
    request.title = "Save as HTML Site";
    request.fileName = kSiteIndexPage;
    request.directory = hlydSettings().LastHTMLLoc;
    request.filter = "HTML Files|*.htm;*.html|All Files (*.*)|*.*";
    return theUi().saveFileDialog(request);
}

void warn(const std::string& text) {
    showMessage(theAppInfo().Title + " " + text, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

// Each page by the rule of every output: never over an input or a file that is not ours.
bool pagesAllowed(const HtmlSite& site) {
    for (const std::string& page : site.outputs())
        if (std::string refusal = outputRefusal({page, OutputKind::Html, "the Save as HTML Site dialog"});
            !refusal.empty()) {
            warn(refusal);
            return false;
        }
    return true;
}

}  // namespace

void HlydMNSaveAsHTMLSite() {
    const FileTableModule& files = fileTable();
    if (files.oFile.Count() < 1) return;
    std::optional<std::string> chosen = chosenIndexPage();
    if (!chosen) return;
    rememberHtmlFolder(*chosen);
    std::string folder = std::filesystem::path(*chosen).parent_path().string();
    mainWindow().lblStatus = "Generating the HTML site in " + folder + " ...";
    theUi().processEvents();
    theUi().setBusy(true);
    mainWindow().disableControls();
    std::string failure;
    try {
        HtmlSite site(folder);
        if (!pagesAllowed(site)) failure = "-";
        else failure = site.write();
    } catch (const HlydError& e) {
        failure = e.Description;
    }
    mainWindow().enableControls();
    theUi().setBusy(false);
    if (failure.empty()) {
        mainWindow().lblStatus = "HTML site written to " + folder;
        return;
    }
    mainWindow().lblStatus = "No HTML site written";
    if (failure != "-") warn(failure);
}

}  // namespace hlyd
