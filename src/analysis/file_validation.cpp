#include "analysis/file_validation.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <vector>

#include "analysis/basiclan_state.h"
#include "shell/c_debug.h"
#include "shell/text_format.h"
#include "shell/c_log.h"
#include "shell/hlyd_error.h"
#include "shell/message_box.h"

namespace hlyd {

namespace {

constexpr std::size_t kBinaryLineLength = 2049;

bool startsSource(const std::string& w) {
    static const char* const kWords[] = {"BEGIN", "CONST", "DECLARE", "DEFBOOL", "DEFBYTE", "DEFCUR",
                                         "DEFDATE", "DEFOBJ", "DEFDBL", "DEFINT", "DEFLNG", "DEFSNG",
                                         "DEFSTR", "DEFVAR", "DIM", "FUNCTION", "GLOBAL", "OPTION",
                                         "PRIVATE", "REDIM", "REM", "STATIC", "SUB", "TYPE"};
    for (const char* word : kWords)
        if (w == word) return true;
    return false;
}

std::string versionDialect(const std::vector<std::string>& words) {
    if (words.size() == 2) {
        if (words[1] == "2.00") return "3";
        if (words[1] == "4.00") return "4";
        if (words[1] == "5.00") return "6";
    } else if (words.size() == 3 && upperCase(words[2]) == "CLASS") {
        return "6";
    }
    return "?";
}

// Reads up to the first line that is not blank, stopping early on a line too long to be source.
// Returns 0 or the errno of a failure; `line` is empty when the file holds only blank lines.
int firstNonBlankLine(std::ifstream& in, std::string& line) {
    std::string current;
    bool blankSoFar = true;
    int c;
    while ((c = in.get()) != EOF) {
        if (c == '\r' || c == '\n') {
            if (c == '\r' && in.peek() == '\n') in.get();
            if (!blankSoFar) break;
            current.clear();
            continue;
        }
        current += static_cast<char>(c);
        blankSoFar = blankSoFar && c == ' ';
        if (current.size() < kBinaryLineLength) continue;
        if (!blankSoFar) break;
        // A blank line is skipped whatever its length; a shorter stand-in still makes any text
        // after it too long, as the whole line would be.
        current.pop_back();
    }
    if (in.bad()) return errno ? errno : EIO;
    line = trimSpaces(current).empty() ? std::string() : current;
    return 0;
}

bool tellUserNow = true;

void tell(const std::string& text, MsgButtons buttons = MsgButtons::OK) {
    if (tellUserNow) showMessage(text, "BabValidateFile", buttons, MsgIcon::Warning);
    else logBlock(text);
}

void readFailure(const std::string& fileName, int number) {
    std::string text = "Module BabValidateFile diagnosed VBErr=" + std::to_string(number) + " on file " + fileName;
    tell(text);
    theDebug().setStatus(4, 2);
}

// Returns false when the user gave up or the failure is final; the status says which.
bool openFile(const std::string& fileName, std::ifstream& in) {
    for (;;) {
        errno = 0;
        std::error_code ec;
        bool directory = std::filesystem::is_directory(fileName, ec);
        if (!directory) in.open(fileName, std::ios::binary);
        if (in.is_open()) return true;
        int number = runtimeErrorFromErrno(directory ? EISDIR : (errno ? errno : ENOENT));
        std::string description = errorDescription(number);
        if (number == 68 || number == 71 || number == 55) {
            MsgAnswer answer = showMessage(fileName + "\n\n" + description, "BabValidateFile",
                                           MsgButtons::RetryCancel, MsgIcon::Warning, 2);
            if (answer == MsgAnswer::Retry) continue;
            theDebug().setStatus(12, 0);
            return false;
        }
        std::string text = "The following error occurred processing " + fileName + ".\n\n" + description;
        tell(text);
        theLog().LogData("VBErr=" + std::to_string(number));
        theDebug().setStatus(7, 0);
        return false;
    }
}

}  // namespace

std::string dialectOfFirstLine(const std::string& line) {
    if (!line.empty() && line[0] == '\'') return "?";
    std::vector<std::string> words = splitOn(line, ' ');
    std::string w = upperCase(words[0]);
    if (startsSource(w)) return "?";
    if (w == "VERSION") return versionDialect(words);
    if (w == "ATTRIBUTE") {
        if (words.size() == 4 && upperCase(words[1]) == "VB_NAME" && words[2] == "=") return "6";
        return "?";
    }
    return {};
}

namespace {

// The first line's verdict; every way out leaves its reason in the status.
void validateFirstLine(const std::string& fileName, std::string& dialect) {
    std::ifstream in;
    if (!openFile(fileName, in)) return;
    std::string line;
    int err = firstNonBlankLine(in, line);
    in.close();
    if (err != 0) return readFailure(fileName, runtimeErrorFromErrno(err));
    if (line.size() >= kBinaryLineLength || line.find('\0') != std::string::npos ||
        line.find('\xFF') != std::string::npos)
        return readFailure(fileName, 14);
    if (line.empty()) {
        theDebug().setStatus(4, 1);
        return;
    }
    std::string detected = dialectOfFirstLine(line);
    if (detected.empty()) theDebug().setStatus(20, 1);
    else dialect = detected;
}

}  // namespace

void BabValidateFile(const std::string& fileName, std::string& dialect, bool tellUser) {
    TraceScope trace(theDebug().TracePackages, "BabValidateFile");
    if (theDebug().TracePackages) theLog().LogData("File=" + fileName);
    if (!basiclan().BabInitDone) {
        theDebug().setStatus(2, 0);
        raiseInternal("BabValidateFile");
    }
    if (trimSpaces(fileName).empty()) {
        theDebug().setStatus(3, 0);
        raiseInternal("BabValidateFile");
    }
    theDebug().setStatus(0, 0);
    tellUserNow = tellUser;
    dialect = "?";
    validateFirstLine(fileName, dialect);
    // Also after a failure: the trace then shows that the dialect stayed unknown.
    if (theDebug().TracePackages) theLog().LogData("Dialect=<" + dialect + ">");
}

}  // namespace hlyd
