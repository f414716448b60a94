#include "shell/start_mode.h"

#include "base/text_format.h"

namespace hlyd {

namespace {

bool isSwitchEnd(const std::string& s, std::size_t at) { return at >= s.size() || s[at] == ' ' || s[at] == '"'; }

// A switch stands as a word of its own: here "/" also begins a path, and "/home/initial.bas"
// names a file, not the switch "/init".
std::size_t findSwitch(const std::string& lower, const std::string& what, std::size_t from = 0) {
    for (std::size_t at = lower.find(what, from); at != std::string::npos; at = lower.find(what, at + 1))
        if ((at == 0 || lower[at - 1] == ' ' || lower[at - 1] == '"') && isSwitchEnd(lower, at + what.size()))
            return at;
    return std::string::npos;
}

// Removes every switch `what` (lower case) in any letter case; the rest keeps its own.
void removeSwitch(std::string& s, const std::string& what) {
    std::string lower = lowerCaseAscii(s);
    for (std::size_t at = findSwitch(lower, what); at != std::string::npos; at = findSwitch(lower, what, at)) {
        s.erase(at, what.size());
        lower.erase(at, what.size());
    }
}

}  // namespace

std::string commandLineFileName(const std::string& commandLine) {
    // The switches are found in any case, but the name keeps its own: file systems that tell
    // letter cases apart would not find it otherwise.
    std::string name = trimSpaces(commandLine);
    removeSwitch(name, "/init");
    removeSwitch(name, "/idemode");
    name = trimSpaces(name);
    std::erase(name, '"');
    return name;
}

std::int32_t decideStartMode(std::int32_t platformMode, const std::string& commandLine) {
    std::string line = lowerCaseAscii(trimSpaces(commandLine));
    if (line.empty()) return platformMode;
    std::int32_t mode = platformMode;
    if (findSwitch(line, "/init") != std::string::npos) mode = kStartInit;
    if (findSwitch(line, "/idemode") != std::string::npos) mode = kStartIdeMode;
    if (!commandLineFileName(commandLine).empty()) mode = kStartCommandLineFile;
    return mode;
}

}  // namespace hlyd
