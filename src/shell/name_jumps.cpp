#include "shell/name_jumps.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <string_view>

#include "analysis/source_model.h"
#include "display/view_selection.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/open_file_texts.h"
#include "platform/char_case.h"
#include "shell/shell_state.h"
#include "xref/name_index.h"

namespace hlyd {

namespace {

std::vector<std::string> openSourceFiles() {
    std::vector<std::string> files;
    for (const cFileDesc& entry : oFile())
        if (entry.FileType == kFileSource) files.push_back(entry.FileName);
    return files;
}

// Indexing loads every member; the window's files change seldom, so the index is kept for them.
const NameIndex& indexOfOpenFiles() {
    ShellState& s = shellState();
    std::vector<std::string> files = openSourceFiles();
    if (!s.nameIndex || s.nameIndexFiles != files) {
        s.nameIndex = std::make_shared<NameIndex>(indexOpenFiles());
        s.nameIndexFiles = std::move(files);
    }
    return *s.nameIndex;
}

bool sameName(std::string_view a, std::string_view b) { return a.size() == b.size() && upperCase(a) == upperCase(b); }

// The name the place stands on in the file shown, and that file's name; empty where it is none.
std::pair<std::string, std::string> nameAt(TextPlace place) {
    const FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return {};
    const cFileDesc& shown = f.oFile.Item(f.wCurrentFile);
    const SourceTables& t = theSourceTables();
    if (shown.FileType != kFileSource || place.record < 1 || place.record > t.RecordCount) return {};
    const Record& r = t.Records[place.record];
    std::string_view line = t.Texts->line(place.record);
    // Each token is found in the line after the one before: a token's text is mostly the line's
    // own, and where the analysis composed it (a string's closing quote) the next is found again.
    std::size_t from = 0;
    for (std::int32_t i = r.FirstT; i >= 1 && i <= r.LastT && i <= t.TokenCount; ++i) {
        const Token& token = t.Tokens[i];
        std::size_t start = line.find(token.text(), from);
        if (start == std::string_view::npos || token.text().empty()) continue;
        from = start + token.text().size();
        auto column = static_cast<std::size_t>(std::max(place.column, 0));
        if (column < start || column > from) continue;
        if (token.Class == TokenClass::Identifier) return {std::string(token.text()), shown.FileName};
    }
    return {};
}

bool at(const NamePlace& place, const std::string& file, std::int32_t line) {
    return place.line == line && place.file == file;
}

// The indexed name that the name at the place declares or uses.
const IndexedName* indexedNameAt(TextPlace place) {
    auto [text, file] = nameAt(place);
    if (text.empty()) return nullptr;
    for (const IndexedName& n : indexOfOpenFiles().names) {
        if (!sameName(n.name, text)) continue;
        if (at(n.declared, file, place.record)) return &n;
        for (const NameUse& use : n.uses)
            if (at(use.place, file, place.record)) return &n;
    }
    return nullptr;
}

// The place as a hit on the name's `nth` standing as a whole word in its line.
FileHit hitOf(const NamePlace& place, const std::string& name, int nth) {
    FileHit hit{place.file, {place.line, 0, static_cast<std::int32_t>(name.size())}, {}};
    std::shared_ptr<const RecordTexts> texts = openFileTexts(place.file);
    if (!texts || place.line < 1 || place.line > texts->count()) return hit;
    hit.line = std::string(texts->line(place.line));
    std::string upper = upperCase(hit.line), word = upperCase(name);
    auto isWordByte = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; };
    for (std::size_t from = 0; (from = upper.find(word, from)) != std::string::npos; ++from) {
        bool whole = (from == 0 || !isWordByte(upper[from - 1])) &&
                     (from + word.size() >= upper.size() || !isWordByte(upper[from + word.size()]));
        if (!whole) continue;
        hit.hit.column = static_cast<std::int32_t>(from);
        if (nth-- == 0) break;
    }
    return hit;
}

}  // namespace

std::optional<FileHit> declarationOfNameAt(TextPlace place) {
    const IndexedName* n = indexedNameAt(place);
    if (!n) return std::nullopt;
    return hitOf(n->declared, n->name, 0);
}

std::vector<FileHit> usesOfNameAt(TextPlace place) {
    std::vector<FileHit> hits;
    const IndexedName* n = indexedNameAt(place);
    if (!n) return hits;
    hits.push_back(hitOf(n->declared, n->name, 0));
    // Several uses on one line stand on the name's first, second, ... place there.
    for (std::size_t i = 0; i < n->uses.size(); ++i) {
        int nth = 0;
        for (std::size_t j = i; j-- > 0 && at(n->uses[j].place, n->uses[i].place.file, n->uses[i].place.line);) ++nth;
        if (at(n->declared, n->uses[i].place.file, n->uses[i].place.line)) ++nth;
        hits.push_back(hitOf(n->uses[i].place, n->name, nth));
    }
    return hits;
}

void goToDeclaration() {
    std::optional<FileHit> hit = declarationOfNameAt(selectionStart());
    if (!hit) {
        mainWindow().lblStatus = "No declaration in the open files for the name at the cursor";
        return;
    }
    showFileHit(*hit);
    mainWindow().lblStatus = "Declared in " + hit->fileName + " on line " + std::to_string(hit->hit.record);
}

}  // namespace hlyd
