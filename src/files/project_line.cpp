// The analysis of one line of a project file: its keyword, its values, and the file it names.
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/project_file.h"
#include "platform/char_case.h"

namespace hlyd {

namespace {

constexpr std::int16_t kClass = 4, kDesigner = 17, kForm = 24, kModule = 31, kObject = 34, kPropertyPage = 41,
                       kReference = 42, kUserControl = 58, kUserDocument = 59, kBeyondTable = 69;

bool fileBearing(std::int16_t k) {
    return k == kClass || k == kDesigner || k == kForm || k == kModule || k == kObject || k == kPropertyPage ||
           k == kUserControl || k == kUserDocument;
}

bool formLike(std::int16_t k) {
    return k == kForm || k == kPropertyPage || k == kUserControl || k == kUserDocument || k == kDesigner;
}

std::int32_t lineTypeOf(std::int16_t k) {
    switch (k) {
        case kForm: return kLineForm;
        case kModule: return kLineModule;
        case kClass: return kLineClass;
        case kUserControl: return kLineUserControl;
        case kUserDocument: return kLineUserDocument;
        case kPropertyPage: return kLinePropertyPage;
        case kDesigner: return kLineDesigner;
        case kReference: return kLineReference;
        case kObject: return kLineObject;
        case kBeyondTable: return kLineNone;
        default: return kLineOtherKeyword;
    }
}

void setValues(cProjectLine& line, std::vector<std::string> values) {
    line.Value = std::move(values);
    line.ValueCount = static_cast<std::int16_t>(line.Value.size());
}

// A line holds five values at most; what lies beyond them makes the line wrong.
void setAtMostFive(cProjectLine& line, std::vector<std::string> values) {
    constexpr std::size_t kMostValues = 5;
    if (values.size() > kMostValues) {
        line.SyntaxError = true;
        values.resize(kMostValues);
    }
    setValues(line, std::move(values));
}

// The keyword's index, 69 past the end of the table, or 0 when the key falls between two entries.
std::int16_t lookUpKey(const std::string& key) {
    const auto& table = projectKeywords();
    for (std::int16_t i = 1; i <= 67; ++i) {
        if (key == table[i]) return i;
        if (key < table[i]) return 0;
    }
    return kBeyondTable;
}

void traceLine(const cProjectLine& line) {
    std::string text = "Record...\n  FileName=" + line.FileName + "\n FileNameExt=" + line.FileNameExt +
                       "\n  FileNameBase=" + line.FileNameBase + "\n  FileNameDrive=" + line.FileNameDrive +
                       "\n  FileNamePath=" + line.FileNamePath + "\n KeyWord=" + std::to_string(line.KeyWord) +
                       "\n  SyntaxError=" + (line.SyntaxError ? "True" : "False") +
                       "\n  Values=" + std::to_string(line.ValueCount);
    for (const std::string& v : line.Value) text += "\n Value=" + v;
    theLog().LogData(text);
}

}  // namespace

// An old project names its members bare, one file name to a line.
static void oldFormLine(cProjectFile& project, cProjectLine& line, const std::string& text, const std::string& formExt,
                        const std::string& moduleExt) {
    if (text.find(' ') != std::string::npos) {
        line.SyntaxError = true;
        return;
    }
    line.FileName = text;
    bool bad = false;
    ParseFileName(line.FileName, line.FileNameDrive, line.FileNamePath, line.FileNameBase, line.FileNameExt, bad);
    // The lists are matched as texts: a name without extension leaves only the point, which
    // every list holds, so such a line passes all three tests.
    std::string ext = upperCase(line.FileNameExt) + ".";
    if (formExt.find(ext) != std::string::npos) {
        line.KeyWord = -kForm;
        line.FileType = kLineForm;
    }
    if (moduleExt.find(ext) != std::string::npos) {
        line.KeyWord = -kModule;
        line.FileType = kLineModule;
        if (line.VBName.empty()) line.VBName = line.FileNameBase;
    }
    if (std::string(".VBX.").find(ext) != std::string::npos) {
        line.KeyWord = -kObject;
        incrementInt16(project.ObjectCount, "ParseProjectRecord");
    }
}

void cProjectFile::parseValues(cProjectLine& line, const std::string& value) {
    bool files = fileBearing(line.KeyWord);
    if (!value.empty() && value[0] == '"') {
        if (files || value.back() != '"') line.SyntaxError = true;
        else setValues(line, {value});
        return;
    }
    if (value.find(',') != std::string::npos) {
        if (files) line.SyntaxError = true;
        else setAtMostFive(line, splitOn(value, ','));
        return;
    }
    bool hashed = value.find('#') != std::string::npos;
    if (hashed) {
        setValues(line, splitOn(value, '#'));
    } else {
        setValues(line, splitOn(value, ' '));
        if ((line.KeyWord == kObject || line.KeyWord == kReference) &&
            upperCase(line.Value[0]).find(".VBP") != std::string::npos) {
            incrementInt16(line.KeyWord == kObject ? ObjectCount : ReferenceCount, "ParseProjectRecord");
            return;
        }
    }
    if (line.KeyWord == kReference && hashed) {
        setAtMostFive(line, line.Value);
        if (line.Value.size() >= 4) line.FileName = line.Value[3];
        if (line.Value.size() >= 5) line.VBName = line.Value[4];
        return;
    }
    if (!files) return;
    if (!hashed) {
        if (formLike(line.KeyWord)) {
            setValues(line, {trimSpaces(value)});
        } else {
            std::vector<std::string>& words = line.Value;
            std::size_t semicolon = value.find(';');
            if (words.empty() || words[0].empty() || words[0].back() != ';' || words.size() < 2 ||
                semicolon == std::string::npos) {
                line.SyntaxError = true;
                return;
            }
            std::string name = words[0].substr(0, words[0].size() - 1);
            setValues(line, {name, trimSpaces(value.substr(semicolon + 1))});
            if (line.KeyWord == kClass || line.KeyWord == kModule) line.VBName = name;
        }
    }
    std::size_t which = formLike(line.KeyWord) ? 0 : 1;
    line.FileName = which < line.Value.size() ? line.Value[which] : std::string();
    bool bad = false;
    ParseFileName(line.FileName, line.FileNameDrive, line.FileNamePath, line.FileNameBase, line.FileNameExt, bad);
}

void cProjectFile::ParseProjectRecord(cProjectLine& line, const std::string& formExt, const std::string& moduleExt) {
    if (formExt.empty() || formExt[0] != '.' || moduleExt.empty() || moduleExt[0] != '.') {
        line.SyntaxError = true;
        return;
    }
    line.KeyWord = 0;
    std::string text = trimSpaces(line.AsRecord);
    if (text.empty()) return;
    std::size_t eq = text.find('=');
    if (eq == std::string::npos) {
        if (text[0] == '[') return;  // a section head such as "[MS Transaction Server]"
        oldFormLine(*this, line, text, formExt, moduleExt);
    } else if (eq == 0) {
        line.SyntaxError = true;
    } else {
        std::string key = upperCase(text.substr(0, eq));
        key = key.substr(0, key.find('('));
        line.KeyWord = lookUpKey(key);
        if (line.KeyWord == 0) {
            line.SyntaxError = true;
        } else {
            line.FileType = lineTypeOf(line.KeyWord);
            parseValues(line, text.substr(eq + 1));
        }
    }
    if (theDebug().TraceApplication) traceLine(line);
}

}  // namespace hlyd
