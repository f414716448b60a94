#include "shell/app_info.h"

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace hlyd {

namespace {
cAppInfo appInfo;

fs::path runningExecutable(const char* argv0) {
    std::error_code ec;
    fs::path self = fs::read_symlink("/proc/self/exe", ec);
    if (!ec && !self.empty()) return self;
    if (argv0 && *argv0) return fs::absolute(argv0, ec);
    return fs::current_path(ec) / "halyard";
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
    std::error_code ec;
    if (fs::exists(beside, ec)) return beside.string();
    fs::path shared = fs::path(HLYD_INSTALL_PREFIX) / "share" / "halyard" / name;
    if (fs::exists(shared, ec)) return shared.string();
    return beside.string();
}

}  // namespace hlyd
