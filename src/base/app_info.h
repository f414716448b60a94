#pragma once
// What the program knows of itself: title, version, where it runs from, and where it keeps its
// writable files.
#include <string>
#include <vector>

namespace hlyd {

// Where error reports go unless the settings name another address ([General] SupportAddress).
inline constexpr const char* kDefaultSupportEndpoint = "support@halyard.invalid";

struct cAppInfo {
    std::string Title = "Halyard";
    std::string Version = HLYD_VERSION;
    std::string VersionDate = "21-Nov-2026";
    std::string Path;     // directory of the executable
    std::string EXEName;  // file name of the executable, without directory
    std::string SupportEndpoint = kDefaultSupportEndpoint;
    std::string SupportParty = "Halyard support";
    std::string UserName;  // from the settings, for the splash and the error report
    std::string UserCompany;
};

cAppInfo& theAppInfo();

// Fills Path and EXEName from the running executable (argv0 is the fallback where /proc is absent).
void initAppInfo(const char* argv0);

// The settings directory: $HLYD_CONFIG_DIR, else $XDG_CONFIG_HOME/halyard, else ~/.config/halyard.
std::string settingsDirectory();

// A read-only data file: beside the executable when it is there, else in <prefix>/share/halyard.
std::string dataFilePath(const std::string& name);
// Every place dataFilePath looks, in its order, for a message that tells where it looked.
std::vector<std::string> dataFileCandidates(const std::string& name);

}  // namespace hlyd
