#include "shell/command_line_names.h"

#include <algorithm>
#include <cerrno>

#include "base/app_info.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "platform/os.h"
#include "settings/settings_store.h"
#include "shell/command_line_job.h"

namespace hlyd {

namespace {

std::vector<std::string> splitAtBars(const std::string& list) {
    std::vector<std::string> parts = splitOn(list, '|');
    std::erase(parts, std::string());
    return parts;
}

bool hasExtension(const std::string& name) {
    std::size_t slash = name.find_last_of("\\/");
    std::size_t dot = name.find_last_of('.');
    return dot != std::string::npos && (slash == std::string::npos || dot > slash);
}

std::size_t lastPartStart(const std::string& name) {
    std::size_t slash = name.find_last_of(os::windowsFileNames() ? "\\/" : "/");
    return slash == std::string::npos ? 0 : slash + 1;
}

// "*" any run of characters, "?" one; by the usual backtracking over the last star.
bool matches(const std::string& name, const std::string& pattern, bool ignoreCase) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    auto same = [ignoreCase, lower](char a, char b) { return ignoreCase ? lower(a) == lower(b) : a == b; };
    std::size_t n = 0, p = 0, star = std::string::npos, resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || (pattern[p] != '*' && same(pattern[p], name[n])))) {
            ++n, ++p;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (star != std::string::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

// The classic box for a name that is not there; in a run without a window it goes to standard
// error as one block.
void tellMissing(const std::string& name) {
    CommandLineJob& job = commandLineJob();
    if (job.exitStatus == 0) job.exitStatus = kExitUnreadable;
    showMessage("Halyard cannot print the requested file\n\nThe file does not exist.\n" + name +
                        "\nPlease check your request",
                theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
}

}  // namespace

std::string withSourceExtension(const std::string& name) {
    if (hasExtension(name) || os::fileInfo(name).exists()) return name;
    const HlydSettings& s = hlydSettings();
    // The settings write extensions in capitals; files on this system mostly carry them in
    // small letters.
    for (const std::string& ext : splitAtBars(s.BasicExt + "|" + s.FormExt))
        for (const std::string& candidate : {name + "." + lowerCaseAscii(ext), name + "." + ext})
            if (os::fileInfo(candidate).exists()) return candidate;
    return name;
}

bool isNamePattern(const std::string& name) {
    return name.find_first_of("*?", lastPartStart(name)) != std::string::npos;
}

std::vector<std::string> filesMatching(const std::string& pattern) {
    std::size_t start = lastPartStart(pattern);
    std::string folder = pattern.substr(0, start);
    std::string last = pattern.substr(start);
    std::vector<std::string> names, files;
    if (os::listDirectory(folder.empty() ? "." : folder, names) != 0) return files;
    for (const std::string& name : names)
        if (name[0] != '.' || last[0] == '.')  // hidden files only when asked for, as a shell does
            if (matches(name, last, os::windowsFileNames()) && os::fileInfo(folder + name).regular())
                files.push_back(folder + name);
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> filesToPrint(const std::vector<std::string>& names) {
    std::vector<std::string> files;
    for (const std::string& name : names) {
        if (isNamePattern(name)) {
            std::vector<std::string> matched = filesMatching(name);
            if (matched.empty()) failJob(kExitUnreadable, "no file matches " + name);
            files.insert(files.end(), matched.begin(), matched.end());
            continue;
        }
        std::string file = withSourceExtension(name);
        int problem = os::regularFileProblem(file);
        if (problem == ENOENT) tellMissing(name);
        // A folder, a FIFO or a device holds no listing: a FIFO would wait, a device never end.
        else if (problem != 0) failJob(kExitUnreadable, "cannot print " + file + ": " + os::errorText(problem));
        else files.push_back(file);
    }
    return files;
}

}  // namespace hlyd
