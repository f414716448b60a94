#include "analysis/keywords.h"

#include <algorithm>
#include <cstring>
#include <filesystem>

#include "analysis/basiclan_state.h"
#include "analysis/keyword_file.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "platform/os.h"

namespace hlyd {

namespace {

struct FlagRule {
    const char* name;
    const char* allowed;
};
constexpr FlagRule kFlagRules[6] = {
        {"Class-code", "-CEMDBOPVX"},
        {"Indent-flag", "-NY"},
        {"Outdent-flag", "-NY"},
        {"ClassOverride-flag", "-NY"},
        {"KeepLeadingComments-flag", "-NY"},
        {"ScanForVerb-flag", "-NY"},
};

KeyWord sentinelKeyWord() {
    KeyWord k;
    k.ClassCode = '\0';
    k.Word = std::string(1, '\0');
    return k;
}

struct EntryFault {
    std::string name;
};

// Checks one entry and fills `entry`; returns the fault's name, or empty when the entry is good.
std::string parseEntry(const std::string& word, const std::string& dialect, const std::string& flags,
                       const KeyWord& previous, KeyWord& entry) {
    entry.Word = upperCase(word);
    if (!(previous.Word < entry.Word)) return "File sequence";
    if (dialect.empty()) return "Dialect";
    entry.Dialect = dialect;
    std::string f = upperCase(flags) + "------";
    for (int i = 0; i < 6; ++i)
        if (!std::strchr(kFlagRules[i].allowed, f[i]) || f[i] == '\0') return kFlagRules[i].name;
    entry.ClassCode = f[0];
    entry.Indent = f[1] == 'Y';
    entry.Outdent = f[2] == 'Y';
    entry.ClassOverride = f[3] == 'Y';
    entry.KeepLeadingComments = f[4] == 'Y';
    entry.ScanForVerb = f[5] == 'Y';
    return {};
}

[[noreturn]] void missingKeywordFile(const std::string& path) {
    std::string directory = std::filesystem::path(path).parent_path().string();
    const std::string& title = theAppInfo().Title;
    std::string text = std::string("The file ") + kKeywordFileName + "was not found in the directory \n" + directory +
                       "\n\n" + kKeywordFileName + " is required for " + title +
                       " to operate.\n\nPlease install this file in the directory " + directory;
    // The program's own data is looked for in more than one place: name them all, so that an installed copy
    // with its data folder missing says where it should be.
    std::vector<std::string> places = dataFileCandidates(kKeywordFileName);
    if (places.front() == path) {
        text += "\n\nLooked for:";
        for (const std::string& place : places) text += "\n" + place;
    }
    showMessage(text, title, MsgButtons::OK, MsgIcon::Critical);
    theDebug().setStatus(kStatusKeywordFileMissing, 0);
    raiseInternal("BabInit");
}

[[noreturn]] void keywordFileUnreadable(const std::string& path, int err) {
    BasiclanModule& m = basiclan();
    m.KeyWords.assign(1, sentinelKeyWord());
    std::string text = "The following error occurred processing " + path + ".\n\n" + describeSystemError(err);
    showMessage(text, "BabInit -- I/O Error", MsgButtons::OK, MsgIcon::Warning);
    theDebug().setStatus(kStatusKeywordFileUnreadable, 0);
    raiseInternal("BabInit");
}

[[noreturn]] void badKeywordEntry(const std::string& path, const std::string& fault, int entry,
                                  const std::string& word) {
    BasiclanModule& m = basiclan();
    m.KeyWords.assign(1, sentinelKeyWord());
    m.KeyWordTotal = 0;
    std::string text = "BabInit\n" + path + "\n\nInvalid " + fault + "\n\nRecord=" + std::to_string(entry) +
                       " KeyWord=|" + word + "|";
    showMessage(text, "BabInit", MsgButtons::OK, MsgIcon::Critical);
    theDebug().setStatus(kStatusReadingStopped, entry);
    raiseInternal("BabInit");
}

void readKeywordFile(const std::string& path) {
    std::string content;
    if (int reason = os::readWholeFile(path, content); reason != 0) keywordFileUnreadable(path, reason);

    BasiclanModule& m = basiclan();
    // Room for the file's entries, a line each, but none made yet: thousands of blank entries
    // built only to be overwritten were a third of a small file's run, and room for thousands
    // more than the file holds pushed a large module's tables up into one more large page.
    auto lines = static_cast<std::size_t>(std::count(content.begin(), content.end(), '\n'));
    m.KeyWords.reserve(m.KeyWords.size() + lines + 1);
    DelimitedReader reader(content);
    std::int32_t count = 0;
    while (!reader.atEnd()) {
        std::string word = reader.readValue();
        std::string dialect = reader.readValue();
        std::string flags = reader.readValue();
        ++count;
        KeyWord entry;
        std::string fault = parseEntry(word, dialect, flags, m.KeyWords.back(), entry);
        if (!fault.empty()) badKeywordEntry(path, fault, count, word);
        m.KeyWords.push_back(std::move(entry));
    }
    m.KeyWordTotal = count;
}

}  // namespace

void BabInitFrom(const std::string& path) {
    TraceScope trace(theDebug().TracePackages, "BabInit");
    BasiclanModule& m = basiclan();
    if (m.BabInitDone) {
        theDebug().setStatus(kStatusAlreadyInitialised, 0);
        return;
    }
    m.BabInitDone = true;
    theLog().LogData("BASICLAN.BAS Version 87 Dated 19-Dec-95\n BASICLAN.BE Version 29 Dated 18-Dec-95");
    m.KeyWords.assign(1, sentinelKeyWord());
    m.KeyWordTotal = 0;
    m.CurrentDialect.clear();

    if (!os::fileInfo(path).regular()) missingKeywordFile(path);
    readKeywordFile(path);
    BuildKeyWordsForDialect("6");
}

void BabInit() { BabInitFrom(dataFilePath(kKeywordFileName)); }

void BuildKeyWordsForDialect(const std::string& dialect) {
    BasiclanModule& m = basiclan();
    if (dialect != "3" && dialect != "4" && dialect != "5" && dialect != "6") {
        theDebug().setStatus(kStatusBadArgument, kDetailUnknownDialect);
        raiseInternal("BuildKeyWordsForDialect");
    }
    if (dialect == m.CurrentDialect) return;
    if (m.KeyWords.empty()) m.KeyWords.assign(1, sentinelKeyWord());
    m.DialectKeyWords.clear();
    m.DialectKeyWords.reserve(m.KeyWords.size());
    for (const KeyWord& k : m.KeyWords)
        if (k.Dialect == "*" || !(k.Dialect > dialect)) m.DialectKeyWords.push_back(k);
    m.CurrentDialect = dialect;
    m.DialectKeyWordCount = static_cast<std::int32_t>(m.DialectKeyWords.size());
    std::vector<std::string> words;
    words.reserve(m.DialectKeyWords.size());
    for (const KeyWord& k : m.DialectKeyWords) words.push_back(k.Word);
    m.DialectIndex.build(words);
    m.LetKeyWord = 0;
    SearchForKeyWord("LET", m.LetKeyWord);
}

void SearchForKeyWord(std::string_view word, std::int32_t& index) {
    const BasiclanModule& m = basiclan();
    index = m.DialectIndex.find(word);
    // A token keeps its keyword in 16 bits; a keyword file a hundred times the shipped one would
    // have its last words taken for names.
    if (index >= m.DialectKeyWordCount || index > INT16_MAX) index = 0;
}

bool BabIsKeyWord(std::string_view word) {
    std::int32_t index = 0;
    SearchForKeyWord(word, index);
    return index != 0;
}

const KeyWord& dialectKeyWord(std::int32_t index) {
    static const KeyWord empty = sentinelKeyWord();
    const BasiclanModule& m = basiclan();
    if (index < 0 || index >= static_cast<std::int32_t>(m.DialectKeyWords.size())) return empty;
    return m.DialectKeyWords[index];
}

}  // namespace hlyd
