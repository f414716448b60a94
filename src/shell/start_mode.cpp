#include "shell/start_mode.h"

#include "base/text_format.h"

namespace hlyd {

namespace {

void removeAll(std::string& s, const std::string& what) {
    for (std::size_t at = s.find(what); at != std::string::npos; at = s.find(what, at)) s.erase(at, what.size());
}

}  // namespace

std::string commandLineFileName(const std::string& commandLine) {
    std::string name = lowerCaseAscii(trimSpaces(commandLine));
    removeAll(name, "/init");
    removeAll(name, "/idemode");
    name = trimSpaces(name);
    removeAll(name, "\"");
    return name;
}

std::int32_t decideStartMode(std::int32_t platformMode, const std::string& commandLine) {
    std::string line = lowerCaseAscii(trimSpaces(commandLine));
    if (line.empty()) return platformMode;
    std::int32_t mode = platformMode;
    if (line.find("/init") != std::string::npos) mode = kStartInit;
    if (line.find("/idemode") != std::string::npos) mode = kStartIdeMode;
    if (!commandLineFileName(commandLine).empty()) mode = kStartCommandLineFile;
    return mode;
}

}  // namespace hlyd
