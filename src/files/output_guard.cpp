#include "files/output_guard.h"

#include <algorithm>

#include "analysis/keywords.h"
#include "base/app_info.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "files/print_history.h"
#include "files/run_inputs.h"
#include "platform/char_case.h"
#include "platform/os.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// Enough of a file to tell what it is. A history's sections are looked for this far; the other
// kinds tell themselves in their first bytes, and reading a megabyte of the PDF or HTML a run
// replaces cost a large module's run more time than its analysis's worst routine.
constexpr std::size_t kHistoryHeadBytes = std::size_t{1024} * 1024;
constexpr std::size_t kHeadBytes = 4096;

std::size_t headBytesFor(OutputKind kind) { return kind == OutputKind::History ? kHistoryHeadBytes : kHeadBytes; }

const char* kindName(OutputKind kind) {
    switch (kind) {
        case OutputKind::Log: return "log file";
        case OutputKind::History: return "print history";
        case OutputKind::Pdf: return "PDF file";
        case OutputKind::Html: return "HTML document";
    }
    return "file";
}

std::vector<std::string> splitAtBars(const std::string& list) {
    std::vector<std::string> parts;
    for (const std::string& part : splitOn(list, '|'))
        if (!part.empty()) parts.push_back(upperCase(part));
    return parts;
}

// The extension of the last part of the name, in capitals; empty when it has none.
std::string extensionOf(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    std::size_t dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return {};
    return upperCase(path.substr(dot + 1));
}

// The kinds the program reads, as the settings list them, and the projects and groups always.
bool visualBasicExtension(const std::string& extension) {
    if (extension.empty()) return false;
    const HlydSettings& s = hlydSettings();
    std::vector<std::string> known = splitAtBars(s.BasicExt + "|" + s.FormExt + "|" + s.ProjectExt + "|VBP|MAK|VBG");
    return std::find(known.begin(), known.end(), extension) != known.end();
}

// Room for the head only as far as the file goes: a megabyte blanked for a file of a few
// kilobytes cost a batch run's start more than all its own work.
int readHead(const std::string& path, std::uint64_t size, std::size_t wanted, std::string& head) {
    os::InputFile file;
    if (int error = file.open(path); error != 0) return error;
    head.resize(static_cast<std::size_t>(std::min<std::uint64_t>(wanted, size)));
    std::size_t got = 0;
    while (got < head.size()) {
        long n = file.read(head.data() + got, head.size() - got);
        if (n < 0) return file.error();
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
    }
    head.resize(got);
    return 0;
}

bool startsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && upperCase(text.substr(0, prefix.size())) == upperCase(prefix);
}

bool looksLikeHtml(std::string_view head) {
    if (startsWithNoCase(head, "\xEF\xBB\xBF")) head.remove_prefix(3);
    std::size_t first = head.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return false;
    head.remove_prefix(first);
    return startsWithNoCase(head, "<html") || startsWithNoCase(head, "<!doctype html");
}

// Our entries or the sibling tool's: a file without either section was never a history of ours.
bool looksLikeHistory(const std::string& head) {
    std::string upper = upperCase(head);
    for (const char* section : {kHistorySection, kSiblingHistorySection})
        if (upper.find("[" + upperCase(section) + "]") != std::string::npos) return true;
    return false;
}

bool holdsWhatWeWrite(OutputKind kind, const std::string& head) {
    switch (kind) {
        case OutputKind::Log: return head.rfind(" =====> ", 0) == 0;  // the header every log begins with
        case OutputKind::History: return looksLikeHistory(head);
        case OutputKind::Pdf: return head.rfind("%PDF", 0) == 0;
        case OutputKind::Html: return looksLikeHtml(head);
    }
    return false;
}

// Why the file must not be written, as the end of a sentence "... because it ..."; empty when it may.
std::string reasonToRefuse(const OutputTarget& target, const std::vector<std::string>& inputs) {
    std::string extension = extensionOf(target.path);
    if (visualBasicExtension(extension)) return "has the extension ." + extension + " of a Visual Basic file";
    os::FileInfo info = os::fileInfo(target.path);
    if (!info.exists()) return {};
    if (!info.regular()) return info.kind == os::FileKind::Directory ? "is a folder" : "is no regular file";
    for (const std::string& input : inputs)
        if (info.sameFileAs(os::fileInfo(input))) return "is a file this run reads";
    // An empty file holds nothing to lose: a script may well make the name before the run.
    if (info.size == 0) return {};
    std::string head;
    if (int error = readHead(target.path, info.size, headBytesFor(target.kind), head); error != 0)
        return "cannot be read to see what it holds (" + os::errorText(error) + ")";
    if (!holdsWhatWeWrite(target.kind, head))
        return std::string("is there and is no ") + kindName(target.kind) + " of ours";
    return {};
}

std::string message(const OutputTarget& target, const std::string& reason) {
    return "will not write the " + std::string(kindName(target.kind)) + " " + target.path + " named by " +
           target.namedBy + ": it " + reason + ". Nothing was changed.";
}

std::vector<std::string> withProgramFiles(std::vector<std::string> inputs) {
    inputs.push_back(iniHandler().resolvedPath());
    inputs.push_back(dataFilePath(kKeywordFileName));
    return inputs;
}

}  // namespace

std::string outputRefusal(const OutputTarget& target, const std::vector<std::string>& inputs) {
    std::string reason = reasonToRefuse(target, withProgramFiles(inputs));
    return reason.empty() ? std::string() : message(target, reason);
}

std::string outputRefusal(const OutputTarget& target) { return outputRefusal(target, inputsOfThisRun()); }

std::string outputsRefusal(const std::vector<OutputTarget>& targets, const std::vector<std::string>& inputs) {
    for (const OutputTarget& target : targets)
        if (std::string refusal = outputRefusal(target, inputs); !refusal.empty()) return refusal;
    for (std::size_t i = 0; i < targets.size(); ++i)
        for (std::size_t j = i + 1; j < targets.size(); ++j) {
            os::FileInfo a = os::fileInfo(targets[i].path);
            bool same = a.exists() ? a.sameFileAs(os::fileInfo(targets[j].path))
                                   : os::absolutePath(targets[i].path) == os::absolutePath(targets[j].path);
            if (same)
                return message(targets[j], "is also the " + std::string(kindName(targets[i].kind)) + " named by " +
                                                   targets[i].namedBy);
        }
    return {};
}

std::optional<OutputTarget> logOutput() {
    const HlydSettings& s = hlydSettings();
    std::string log = theLog().isOpen() ? theLog().LogFileName() : s.LogFile;
    if (!s.LoggingIsOn || log.empty()) return std::nullopt;
    return OutputTarget{log, OutputKind::Log, "LogFile in [Debug] of the settings"};
}

std::optional<OutputTarget> historyOutput() {
    if (!hlydSettings().SaveHYInfo) return std::nullopt;
    return OutputTarget{historyFilePath(), OutputKind::History, "SaveHYFile in [General] of the settings"};
}

}  // namespace hlyd
