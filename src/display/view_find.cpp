#include "display/display_state.h"
#include "display/view_find.h"

#include "analysis/source_model.h"
#include "display/screen_emitter.h"
#include "display/view_selection.h"
#include "display/viewing.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/open_file_texts.h"

namespace hlyd {

namespace {

FindState& state() { return displayState().find; }

const RecordTexts& shownTexts() { return *theSourceTables().Texts; }

// A project's listing is no source to search; a member of it shown is.
bool sourceShown() {
    const FileTableModule& f = fileTable();
    return f.wCurrentFile >= 1 && f.wCurrentFile <= f.oFile.Count() &&
           f.oFile.Item(f.wCurrentFile).FileType == kFileSource;
}

bool sameSearch(const std::string& query, const SearchOptions& options) {
    return state().of == &shownTexts() && state().query == query && state().options.matchCase == options.matchCase &&
           state().options.wholeWord == options.wholeWord;
}

// Forward from just after the current hit's start, backward from its start; a new search starts
// at the selection, or at the top of the view.
TextPlace searchStart(const std::string& query, const SearchOptions& options, bool forward) {
    if (sameSearch(query, options)) return {state().current.record, state().current.column + (forward ? 1 : 0)};
    if (!selectionEmpty()) return selectionStart();
    return {std::max(1, emitterState().FirstRecord), 0};
}

std::string wrapMessage(bool forward) {
    return forward ? "Passed the end of the file; continued from the top"
                   : "Passed the top of the file; continued from the end";
}

}  // namespace

FindState& findState() { return state(); }
void resetFindState() { state() = FindState{}; }

bool findInView(const std::string& query, const SearchOptions& options, bool forward) {
    MainWindowModel& w = mainWindow();
    if (query.empty()) return false;
    if (!sourceShown()) {
        // A project's listing is made of its members' names, not of lines a reader typed.
        w.lblStatus = "Find searches the source files: choose a member, or Find in All Open Files";
        return false;
    }
    TextPlace from = searchStart(query, options, forward);
    FindOutcome outcome = findFrom(shownTexts(), query, options, from, forward, recordOnScreen);
    if (!outcome.found) {
        w.lblStatus = "Not found: " + query;
        return false;
    }
    state() = FindState{query, options, outcome.hit, &shownTexts()};
    selectHit(outcome.hit);
    revealPlace({outcome.hit.record, outcome.hit.column + outcome.hit.length});
    revealPlace({outcome.hit.record, outcome.hit.column});
    w.lblStatus = outcome.wrapped ? wrapMessage(forward) : "Found on line " + std::to_string(outcome.hit.record);
    return true;
}

std::optional<TextHit> currentHit() {
    if (state().of != &shownTexts() || state().current.record < 1) return std::nullopt;
    return state().current;
}

std::vector<FileHit> findInOpenFiles(const std::string& query, const SearchOptions& options) {
    std::vector<FileHit> hits;
    forgetClosedFileTexts();
    for (const cFileDesc& entry : oFile()) {
        if (entry.FileType != kFileSource) continue;
        std::shared_ptr<const RecordTexts> texts = openFileTexts(entry.FileName);
        if (!texts) continue;
        for (const TextHit& hit : findAll(*texts, query, options))
            hits.push_back({entry.FileName, hit, std::string(texts->line(hit.record))});
    }
    return hits;
}

void showFileHit(const FileHit& hit) {
    const FileCollection& files = oFile();
    int position = 0;
    for (int i = 1; i <= files.Count() && position == 0; ++i)
        if (files.Item(i).FileName == hit.fileName && files.Item(i).FileType == kFileSource) position = i;
    if (position == 0) return;
    if (position != fileTable().wCurrentFile) mnuViewFileList_Click(position);
    if (fileTable().wCurrentFile != position) return;
    state().current = hit.hit;
    state().of = &shownTexts();
    selectHit(hit.hit);
    revealPlace({hit.hit.record, hit.hit.column + hit.hit.length});
    revealPlace({hit.hit.record, hit.hit.column});
}

}  // namespace hlyd
