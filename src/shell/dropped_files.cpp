#include "shell/dropped_files.h"

#include <algorithm>

#include "base/text_format.h"
#include "files/main_window_model.h"
#include "settings/settings_store.h"
#include "shell/window_commands.h"

namespace hlyd {

namespace {

std::string extensionOf(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    std::size_t dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    return lowerCaseAscii(path.substr(dot + 1));
}

std::string nameOf(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string refusal(const std::vector<std::string>& refused) {
    std::string names;
    for (const std::string& path : refused) names += (names.empty() ? "" : ", ") + nameOf(path);
    return "Not opened: " + names + " (only Visual Basic source, project and group files open)";
}

}  // namespace

bool opensWhenDropped(const std::string& path) {
    const HlydSettings& s = hlydSettings();
    std::string ext = extensionOf(path);
    if (ext.empty()) return false;
    for (const std::string& known : splitOn(s.BasicExt + "|" + s.FormExt + "|" + s.ProjectExt, '|'))
        if (!known.empty() && lowerCaseAscii(known) == ext) return true;
    return false;
}

void openDroppedFiles(const std::vector<std::string>& paths) {
    std::vector<std::string> opened, refused;
    for (const std::string& path : paths) (opensWhenDropped(path) ? opened : refused).push_back(path);
    if (!opened.empty()) openNamedFiles(opened);
    // Said after the opening, whose own status would otherwise stand in its place.
    if (!refused.empty()) mainWindow().lblStatus = refusal(refused);
}

}  // namespace hlyd
