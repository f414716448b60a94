#include "shell/display_options.h"

#include <string>
#include <vector>

#include "base/app_info.h"
#include "base/c_log.h"
#include "base/message_box.h"
#include "display/font_metrics.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "files/file_table.h"
#include "platform/ui.h"
#include "platform/views.h"
#include "settings/ini_handler.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr int kMaxTabWidth = 32;

bool tabWidthValid(const std::string& text) {
    if (text.empty() || text.size() > 2) return false;
    for (char c : text)
        if (c < '0' || c > '9') return false;
    int width = std::stoi(text);
    return width >= 1 && width <= kMaxTabWidth;
}

void saveDisplayOptions() {
    const HlydSettings& s = hlydSettings();
    writeSettingsBatch([&s] {
        sbDisplayINISave();
        for (int e = 1; e <= kElementCount; ++e) saveElementAttributes(kDisplay, e);
        // Chosen in this dialog, so kept with its other settings; start-up reads it back.
        if (s.SettingsWritable) iniHandler().WriteString("DefaultFileLoc", s.DefaultFileLoc, std::string("General"));
    });
}

// The screen mends a font it lacks by itself; the user who chose it hears which one stands in.
void validateFontsTellingReplacements() {
    std::vector<std::string> asked;
    for (int e = 1; e <= kElementCount; ++e) asked.push_back(displayAttributes().Elements[e].slot[kDisplay].FontName);
    HlydDAValidateFonts();
    std::string told;
    for (int e = 1; e <= kElementCount; ++e) {
        const std::string& now = displayAttributes().Elements[e].slot[kDisplay].FontName;
        const std::string& wanted = asked[static_cast<std::size_t>(e - 1)];
        if (now != wanted)
            told += (told.empty() ? "" : "\n") + elementName(e) + ": " + wanted + " is not a valid display font; " +
                    now + " is used instead.";
    }
    if (!told.empty()) showMessage(told, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

// From the record at the top, so the user stays at the place the options were changed at.
void drawViewAnew() {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return;
    if (f.oFile.Item(f.wCurrentFile).FileType == kFileSource) DisplayFile();
    else mainWindow().showProject();
}

std::string folderOf(const std::string& path) {
    std::string::size_type last = path.find_last_of("\\/");
    if (last == std::string::npos) return {};
    return last == 0 ? path.substr(0, 1) : path.substr(0, last);
}

}  // namespace

void mnuOptionsDisplay_Click() {
    DisplayOptionsModel m;
    fillDisplayOptions(m);
    theViews().showDisplayOptions(m);
}

bool cmdOk_Click(DisplayOptionsModel& m) {
    if (!tabWidthValid(m.txtTabWidth)) {
        m.lblMessage = "Tab Width must be a whole number from 1 to " + std::to_string(kMaxTabWidth) + ".";
        m.focus = "txtTabWidth";
        return false;
    }
    storeDisplayOptions(m);
    saveDisplayOptions();
    theLog().LogData("Display options saved");
    validateFontsTellingReplacements();
    drawViewAnew();
    m.changed = false;
    return true;
}

void cmdDefaultFileLoc_Click(DisplayOptionsModel& m) {
    FileDialogRequest request;
    request.title = "Default File Location";
    request.directory = m.txtDefaultFileLoc;
    // The second pattern has always read so; it matches nothing, and "All Files" is the first.
    request.filter = "All Files|*.*|Project Files|*.VBP;&.VBG";
    auto chosen = theUi().openFileDialog(request);
    if (!chosen || chosen->empty()) return;
    m.txtDefaultFileLoc = folderOf(chosen->front());
    m.changed = true;
}

bool Form_QueryUnload(DisplayOptionsModel& m) {
    if (!m.changed) return true;
    MsgAnswer answer = showMessage("Do You Want to Save Your Options?", "Save Options", MsgButtons::YesNoCancel,
                                   MsgIcon::Question);
    if (answer == MsgAnswer::Yes) return cmdOk_Click(m);
    return answer == MsgAnswer::No;
}

}  // namespace hlyd
