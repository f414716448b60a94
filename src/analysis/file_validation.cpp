#include "analysis/file_validation.h"

#include <cerrno>
#include <cstdio>
#include <vector>

#include "analysis/basiclan_state.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "platform/os.h"

namespace hlyd {

namespace {

constexpr std::size_t kBinaryLineLength = 2049;

bool startsSource(const std::string& w) {
    static const char* const kWords[] = {"BEGIN",   "CONST",  "DECLARE", "DEFBOOL",  "DEFBYTE", "DEFCUR",
                                         "DEFDATE", "DEFOBJ", "DEFDBL",  "DEFINT",   "DEFLNG",  "DEFSNG",
                                         "DEFSTR",  "DEFVAR", "DIM",     "FUNCTION", "GLOBAL",  "OPTION",
                                         "PRIVATE", "REDIM",  "REM",     "STATIC",   "SUB",     "TYPE"};
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

// The bytes of a file, a block at a time: the first line is looked at byte by byte, and a binary
// file may have no line end for a long way.
class ByteStream {
public:
    explicit ByteStream(os::InputFile& file) : file_(file) {}
    int get() { return at_ < end_ || refill() ? static_cast<unsigned char>(buffer_[at_++]) : EOF; }
    int peek() { return at_ < end_ || refill() ? static_cast<unsigned char>(buffer_[at_]) : EOF; }
    int error() const { return error_; }

private:
    bool refill() {
        long got = file_.read(buffer_, sizeof buffer_);
        if (got < 0) error_ = file_.error() ? file_.error() : EIO;
        at_ = 0;
        end_ = got > 0 ? static_cast<std::size_t>(got) : 0;
        return end_ > 0;
    }
    os::InputFile& file_;
    char buffer_[4096];
    std::size_t at_ = 0, end_ = 0;
    int error_ = 0;
};

// Reads up to the first line that is not blank, stopping early on a line too long to be source.
// Returns 0 or the errno of a failure; `line` is empty when the file holds only blank lines.
int firstNonBlankLine(os::InputFile& file, std::string& line) {
    ByteStream in(file);
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
    if (in.error() != 0) return in.error();
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
    theDebug().setStatus(kStatusReadingStopped, kDetailReadFailure);
}

// Returns false when the user gave up or the failure is final; the status says which.
bool openFile(const std::string& fileName, os::InputFile& in) {
    for (;;) {
        int reason = in.open(fileName);
        if (reason == 0) return true;
        int number = runtimeErrorFromErrno(reason);
        std::string description = describeSystemError(reason);
        if (number == 68 || number == 71 || number == 55) {
            MsgAnswer answer = showMessage(fileName + "\n\n" + description, "BabValidateFile", MsgButtons::RetryCancel,
                                           MsgIcon::Warning, 2);
            if (answer == MsgAnswer::Retry) continue;
            theDebug().setStatus(kStatusDeviceGivenUp, 0);
            return false;
        }
        std::string text = "The following error occurred processing " + fileName + ".\n\n" + description;
        tell(text);
        theLog().LogData("VBErr=" + std::to_string(number));
        theDebug().setStatus(kStatusFileNotFound, 0);
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
    os::InputFile in;
    if (!openFile(fileName, in)) return;
    std::string line;
    int err = firstNonBlankLine(in, line);
    in.close();
    if (err != 0) return readFailure(fileName, runtimeErrorFromErrno(err));
    if (line.size() >= kBinaryLineLength || line.find('\0') != std::string::npos ||
        line.find('\xFF') != std::string::npos)
        return readFailure(fileName, 14);
    if (line.empty()) {
        theDebug().setStatus(kStatusReadingStopped, kDetailEmptyFile);
        return;
    }
    std::string detected = dialectOfFirstLine(line);
    if (detected.empty()) theDebug().setStatus(kStatusNotSource, kDetailNotSource);
    else dialect = detected;
}

}  // namespace

void BabValidateFile(const std::string& fileName, std::string& dialect, bool tellUser) {
    TraceScope trace(theDebug().TracePackages, "BabValidateFile");
    if (theDebug().TracePackages) theLog().LogData("File=" + fileName);
    if (!basiclan().BabInitDone) {
        theDebug().setStatus(kStatusNotInitialised, 0);
        raiseInternal("BabValidateFile");
    }
    if (trimSpaces(fileName).empty()) {
        theDebug().setStatus(kStatusBadArgument, 0);
        raiseInternal("BabValidateFile");
    }
    theDebug().setStatus(kStatusOk, 0);
    tellUserNow = tellUser;
    dialect = "?";
    validateFirstLine(fileName, dialect);
    // Also after a failure: the trace then shows that the dialect stayed unknown.
    if (theDebug().TracePackages) theLog().LogData("Dialect=<" + dialect + ">");
}

}  // namespace hlyd
