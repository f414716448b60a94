#include "base/app_info.h"

#include <cstdlib>
#include <filesystem>

#include "platform/os.h"

namespace fs = std::filesystem;

namespace hlyd {

namespace {
cAppInfo appInfo;

fs::path runningExecutable(const char* argv0) {
    std::string self = os::executablePath();
    if (!self.empty()) return self;
    if (argv0 && *argv0) return os::absolutePath(argv0);
    return fs::path(os::currentDirectory()) / "halyard";
}
}  // namespace

cAppInfo& theAppInfo() { return appInfo; }

void initAppInfo(const char* argv0) {
    fs::path exe = runningExecutable(argv0);
    appInfo.Path = exe.parent_path().string();
    appInfo.EXEName = exe.filename().string();
}

// Every settings key read asks for it: the path is joined again only when the variable it comes
// from has changed (joining it for each of a start's 300 keys was a quarter of the instructions
// of a small file's run).
std::string settingsDirectory() {
    if (const char* dir = std::getenv("HLYD_CONFIG_DIR"); dir && *dir) return dir;
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    bool fromXdg = xdg && *xdg;
    std::string base = fromXdg ? xdg : home && *home ? home : ".";
    static std::string joinedBase, joined;
    static bool joinedFromXdg = false;
    if (joined.empty() || base != joinedBase || fromXdg != joinedFromXdg) {
        joined = (fromXdg ? fs::path(base) / "halyard" : fs::path(base) / ".config" / "halyard").string();
        joinedBase = std::move(base);
        joinedFromXdg = fromXdg;
    }
    return joined;
}

std::vector<std::string> dataFileCandidates(const std::string& name) {
    if (appInfo.Path.empty()) initAppInfo(nullptr);
    // Beside the program first; then an installed copy moved to (or installed into) another
    // prefix uses its own data; then the prefix it was built for.
    return {(fs::path(appInfo.Path) / name).string(),
            (fs::path(appInfo.Path).parent_path() / "share" / "halyard" / name).string(),
            (fs::path(HLYD_INSTALL_PREFIX) / "share" / "halyard" / name).string()};
}

std::string dataFilePath(const std::string& name) {
    std::vector<std::string> places = dataFileCandidates(name);
    for (const std::string& place : places)
        if (os::fileInfo(place).exists()) return place;
    return places.front();
}

}  // namespace hlyd
