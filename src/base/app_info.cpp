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

std::string settingsDirectory() {
    if (const char* dir = std::getenv("HLYD_CONFIG_DIR"); dir && *dir) return dir;
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg)
        return (fs::path(xdg) / "halyard").string();
    const char* home = std::getenv("HOME");
    return (fs::path(home && *home ? home : ".") / ".config" / "halyard").string();
}

std::string dataFilePath(const std::string& name) {
    if (appInfo.Path.empty()) initAppInfo(nullptr);
    fs::path beside = fs::path(appInfo.Path) / name;
    if (os::fileInfo(beside.string()).exists()) return beside.string();
    // An installed copy moved to (or installed into) another prefix uses its own data first.
    fs::path relocated = fs::path(appInfo.Path).parent_path() / "share" / "halyard" / name;
    if (os::fileInfo(relocated.string()).exists()) return relocated.string();
    fs::path shared = fs::path(HLYD_INSTALL_PREFIX) / "share" / "halyard" / name;
    if (os::fileInfo(shared.string()).exists()) return shared.string();
    return beside.string();
}

}  // namespace hlyd
