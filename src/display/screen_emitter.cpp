#include "display/display_state.h"
#include "display/screen_emitter.h"

#include <algorithm>
#include <cmath>

#include "display/connectors.h"
#include "display/font_metrics.h"
#include "display/project_line_layout.h"
#include "display/token_layout.h"
#include "display/view_map.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/project_file.h"
#include "platform/surface.h"
#include "platform/ui.h"
#include "platform/views.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

EmitterState& state() { return displayState().emitter; }

constexpr float kProjectIndent = 40;
constexpr std::int32_t kScrollLimit = 32767;

// At the end of a file a view keeps some room below the last line, ten lines or 2000 twips, for
// records that wrap. A view smaller than twice that keeps half of itself instead, so that the last
// lines still fit in it.
constexpr long kEndRoomLines = 10;
constexpr float kEndRoomTwips = 2000;
constexpr std::int32_t kEndStepCode = 14;
constexpr std::int32_t kEndStepFormDef = 10;

std::int32_t linesPerViewAtEnd(long lines) {
    return static_cast<std::int32_t>(std::max(1L, lines - std::min(kEndRoomLines, lines / 2)));
}
float bottomAtEnd(float height) { return height - std::min(kEndRoomTwips, height / 2); }
// The last screen is found by stepping back a page and forward again by a small margin; the step
// forward stays within half a page, or in a small view it would pass the end of the file.
std::int32_t stepForwardAtEnd(std::int32_t margin, std::int32_t page) {
    return std::min(margin, std::max(0, page / 2));
}

AttributeRecord& screenAttributes(int element) { return displayAttributes().Elements[element].slot[kDisplay]; }

bool isProject(const cFileDesc& entry) { return entry.FileType == kFileGroup || entry.FileType == kFileProject; }

cProjectFile* currentProject(const cFileDesc& entry) {
    if (entry.WhichProject < 1 || entry.WhichProject > oProjectFiles().Count()) return nullptr;
    return &oProjectFiles().Item(entry.WhichProject);
}

// One line of a project listing; heading lines (starting with a blank) get a background from
// the very left.
std::int32_t EmitProjectRecord(Surface& s, const std::string& text, AreaRecord& pos) {
    AttributeRecord& a = screenAttributes(kElemProjectFile);
    setAttributesOn(s, a);
    ProjectLineHooks hooks;
    hooks.destination = kDisplay;
    hooks.lineHeight = static_cast<float>(a.Height);
    hooks.indent = kProjectIndent;
    hooks.wrapIndent = static_cast<float>(a.SpaceWidth);
    hooks.textWidth = [&s](const std::string& piece) { return s.textWidth(piece); };
    hooks.drawPiece = [&](const std::string& piece, float x, float y, bool first) {
        float xBox = (first && !piece.empty() && piece[0] == ' ') ? 0 : x;
        s.filledBox(xBox, y, x + s.textWidth(piece), y + hooks.lineHeight, a.BackColor);
        s.setCurrentX(x);
        s.setCurrentY(y);
        s.print(piece);
    };
    return layoutProjectLine(text, pos, hooks);
}

class ScreenEmission {
public:
    ScreenEmission(Surface& s, std::int32_t& record)
        : s_(s), record_(record), f_(displayAttributes().Format[kDisplay]) {}
    void run();

private:
    void resetViewIfNew();
    void requestForEnd();
    void emitProject(cProjectFile* project);
    void emitSource();
    bool shown(std::int32_t r) const;
    void EmitCodeRecord(std::int32_t r);
    void nothingShown();
    void scrollBarAndList();
    void showFirstRecordOnBar();
    void sourceScrollRange();
    void finish();

    Surface& s_;
    std::int32_t& record_;
    const FormatRecord& f_;
    const cFileDesc* entry_ = nullptr;
    bool project_ = false;
    std::int32_t projectLines_ = 0;
    bool toEnd_ = false;
    AreaRecord pos_;
    std::int32_t firstEmitted_ = 0;
    std::int32_t lastEmitted_ = 0;
    std::int32_t lastFetched_ = 0;
};

void ScreenEmission::resetViewIfNew() {
    const SourceTables& t = theSourceTables();
    if ((!project_ && t.RecordCount == 0) || (project_ && state().FirstShown == 0)) {
        state().FirstShown = 0;
        state().Width = state().Height = 0;
        state().LinesKnown = false;
        state().LinesPerView = 0;
        mainWindow().vsbDisplay.LargeChange = kScrollLimit;
        mainWindow().vsbDisplay.Max = kScrollLimit;
    }
    if (s_.height() != state().Height || s_.width() != state().Width) state().LinesKnown = false;
}

void ScreenEmission::requestForEnd() {
    const SourceTables& t = theSourceTables();
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    if (state().LinesKnown) {
        record_ = std::max(1, t.RecordCount - state().LinesPerView);
        return;
    }
    if (project_) {
        record_ = projectLines_;
        return;
    }
    HlydCFGetRecord(record_, mainWindow().lblRecord);
    const HlydSettings& settings = hlydSettings();
    if (!settings.ViewFormDef[kDisplay] || settings.ViewCode[kDisplay]) {
        if (record_ > bar.LargeChange)
            record_ = record_ - bar.LargeChange - 1 + stepForwardAtEnd(kEndStepCode, bar.LargeChange);
        // The last record is the end mark: the view starts at the latest on the one before it.
        record_ = std::min(record_, std::max(1, t.RecordCount - 1));
        return;
    }
    std::int32_t count = 0;
    for (std::int32_t r = 1; r <= t.RecordCount && t.Records[r].FirstT != 0; ++r) {
        const Statement& st = t.Statements[t.Records[r].FirstS];
        if (!(st.Flags.has(StatementFlag::FormDescription) || (st.Class == StatementClass::Header && st.Flags.none())))
            break;
        ++count;
    }
    record_ = count - bar.LargeChange - 1 + stepForwardAtEnd(kEndStepFormDef, bar.LargeChange);
}

void ScreenEmission::emitProject(cProjectFile* project) {
    state().FirstShown = 1;
    std::int32_t counter = record_ - 1;
    if (counter >= projectLines_) counter = 0;
    while (project && counter < projectLines_ && pos_.Top <= pos_.Bottom) {
        ++counter;
        EmitProjectRecord(s_, project->line(counter).AsRecord, pos_);
        if (firstEmitted_ == 0) firstEmitted_ = counter;
        lastEmitted_ = counter;
    }
}

bool ScreenEmission::shown(std::int32_t r) const {
    const SourceTables& t = theSourceTables();
    const HlydSettings& settings = hlydSettings();
    if (t.Records[r].FirstT == 0) return false;
    bool formDefinition = t.Statements[t.Records[r].FirstS].Flags.has(StatementFlag::FormDescription);
    return formDefinition ? settings.ViewFormDef[kDisplay] : settings.ViewCode[kDisplay];
}

void ScreenEmission::EmitCodeRecord(std::int32_t r) {
    RecordLayoutHooks hooks;
    const LayoutMetrics& m = layoutMetrics();
    hooks.separator = [&](const Statement& governing, const Record& rec, float xWrap, float& y) {
        if (!f_.Separator || !governing.Flags.has(StatementFlag::ProcListingStart) ||
            governing.FirstToken != rec.FirstT)
            return;
        s_.setDrawWidth(f_.SeparatorBold ? 5 : 1);
        s_.line(xWrap, y, s_.scaleWidth() - 1, y, screenAttributes(kElemKeyWords).ForeColor);
        if (f_.SeparatorBold) s_.setDrawWidth(1);
        y += static_cast<float>(f_.SeparatorBold ? 5 * m.TwipsPerPixelY : m.TwipsPerPixelY);
    };
    hooks.beforeFirstToken = [&](std::int32_t rec) {
        if (s_.currentY() < static_cast<float>(state().ViewHeight)) state().LastRecord = rec;
    };
    hooks.connectors = [&](const AreaRecord& pos, float lineHeight, std::int32_t wraps, std::int32_t rec,
                           float xToken) {
        AreaRecord next = pos;
        next.Top = pos.Top + lineHeight;
        float xOffset = 0;
        HlydCLBeginOrEnd(kDisplay, pos, theSourceTables().Records[rec].Indent, next, wraps, rec, xToken, f_, xOffset);
    };
    hooks.stretchDrawn = [](DrawnStretch stretch) { viewMap().stretches.push_back(std::move(stretch)); };
    layoutRecord(kDisplay, r, pos_, hooks);
}

void ScreenEmission::emitSource() {
    const SourceTables& t = theSourceTables();
    planIndentation();
    std::int32_t counter = record_ - 1;
    for (;;) {
        if (pos_.Top > pos_.Bottom) break;
        ++counter;
        HlydCFGetRecord(counter, mainWindow().lblRecord);
        counter = std::clamp(counter, 1, std::max(1, t.Records.UBound()));
        // A record past those read so far is not the end of the file, only the end of this pass.
        if (counter > t.RecordCount) break;
        lastFetched_ = counter;
        if (shown(counter)) {
            pos_.Left = f_.ConnectControls ? 2 * layoutMetrics().ConnectorSize[kDisplay] : 0;
            if (firstEmitted_ == 0) {
                firstEmitted_ = counter;
                if (f_.ConnectControls) HlydCLContinueBeforeTop(kDisplay, pos_, t.Records[counter].Indent, 0);
            }
            EmitCodeRecord(counter);
            lastEmitted_ = counter;
            if (state().FirstShown == 0) state().FirstShown = counter;
        } else if (counter == 1) {
            mainWindow().lblRecord = "Form Def...";
        }
        if (t.Records[counter].FirstT == 0) break;
    }
    if (firstEmitted_ != 0 && f_.ConnectControls) {
        const Record& last = t.Records[lastFetched_];
        std::int32_t open = last.Indent;
        if (last.FirstT != 0 && t.Statements[last.FirstS].Flags.has(StatementFlag::Indent)) ++open;
        HlydCLContinueAfterBottom(kDisplay, pos_.Top, open);
    }
}

void ScreenEmission::nothingShown() {
    setAttributesOn(s_, screenAttributes(kElemKeyWords));
    s_.setCurrentX(0);
    s_.setCurrentY(0);
    // Named by what is shown: with code in view there is no code here, else no form description.
    s_.print(hlydSettings().ViewCode[kDisplay] ? "No Code-statements to display."
                                               : "No Form-definition statements to display.");
    state().FirstRecord = state().LastRecord = -1;
}

// The scroll maximum is an estimate while the file is read, exact once its end is known.
void ScreenEmission::sourceScrollRange() {
    const SourceTables& t = theSourceTables();
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    SourceFile& file = fileTable().source;
    bool atEnd = lastFetched_ >= 1 && t.Records[lastFetched_].FirstT == 0;
    if (!atEnd && file.isOpen() && file.offset() > 0) {
        double estimate = static_cast<double>(t.RecordCount) * static_cast<double>(file.size()) /
                                  static_cast<double>(file.offset()) +
                          bar.LargeChange;
        bar.Max = estimate > kScrollLimit ? kScrollLimit : static_cast<std::int32_t>(std::nearbyint(estimate));
    } else if (!state().LinesKnown) {
        state().LinesKnown = true;
        state().Height = s_.height();
        state().Width = s_.width();
        float fontHeight = layoutMetrics().MaxFontHeight[kDisplay];
        long height = static_cast<long>(state().Height), whole = static_cast<long>(fontHeight);
        state().LinesPerView = linesPerViewAtEnd(whole > 0 ? height / whole : 0);
    }
    if (t.RecordCount > state().LinesPerView)
        bar.Max = t.RecordCount < 32768 ? t.RecordCount - bar.LargeChange - 1 : kScrollLimit;
}

// The bar stands on the record at the top of the view, so that the next key moves from there. It
// is placed after the range is set from this view (the range it had before may not reach a record
// that the procedure list jumped to, or the first code record of a form), and the range stretches
// to take the record in.
void ScreenEmission::showFirstRecordOnBar() {
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    bar.Max = std::max(bar.Max, record_);
    bar.Min = std::min(bar.Min, record_);
    bar.Value = record_;
}

void ScreenEmission::scrollBarAndList() {
    ScrollBarModel& bar = mainWindow().vsbDisplay;
    if (!project_ && record_ != firstEmitted_) {
        if (record_ == 1) bar.Min = firstEmitted_;
        record_ = firstEmitted_;
    }
    state().FirstRecord = record_;
    if (state().LastRecord < state().FirstRecord) state().LastRecord = lastEmitted_;
    if (project_) {
        if (lastEmitted_ < projectLines_) state().LastRecord = lastEmitted_;
        if (!state().LinesKnown) {
            state().LinesKnown = true;
            bar.Max = projectLines_ + 1;
            if (state().LastRecord - state().FirstRecord - 1 > 0)
                bar.LargeChange = state().LastRecord - state().FirstRecord - 1;
        }
        showFirstRecordOnBar();
        return;
    }
    if (lastEmitted_ <= state().FirstRecord + 1) bar.LargeChange = 1;
    else if (state().LastRecord > state().FirstRecord + 1)
        bar.LargeChange = state().LastRecord - state().FirstRecord - 1;
    sourceScrollRange();
    showFirstRecordOnBar();
    std::int32_t which = 0;
    HlydPCGetAssociatedProc(state().FirstRecord, which);
    SortedListModel& list = mainWindow().cboProc;
    if (which < list.ListCount() && which < static_cast<std::int32_t>(yProc().size())) {
        state().ProcListSync = false;
        list.ListIndex = yProc()[which].ListIndex;
        state().ProcListSync = true;
    }
}

void ScreenEmission::finish() {
    mainWindow().lblRecord = "Line: " + std::to_string(state().FirstRecord);
    theViews().present();
    mainWindow().enableControls();
    state().Active = false;
    theUi().setBusy(false);
}

void ScreenEmission::run() {
    FileTableModule& files = fileTable();
    entry_ = &files.oFile.Item(files.wCurrentFile);
    project_ = isProject(*entry_);
    cProjectFile* project = project_ ? currentProject(*entry_) : nullptr;
    projectLines_ = project ? static_cast<std::int32_t>(project->ProjectRecords.size()) : 0;
    toEnd_ = record_ == -1;
    pos_.Top = 0;
    pos_.Height = s_.height();
    pos_.Bottom = toEnd_ ? bottomAtEnd(s_.height()) : s_.height();
    pos_.Right = pos_.Width = s_.width();
    resetViewIfNew();
    mainWindow().disableControls();
    if (toEnd_) requestForEnd();
    if (record_ < 1) record_ = 1;
    s_.cls();
    viewMap().stretches.clear();
    if (project_) emitProject(project);
    else emitSource();
    if (firstEmitted_ == 0 && lastEmitted_ == 0) {
        nothingShown();
    } else {
        scrollBarAndList();
    }
    finish();
}

}  // namespace

EmitterState& emitterState() { return state(); }

bool recordOnScreen(std::int32_t record) {
    const SourceTables& t = theSourceTables();
    if (record < 1 || record > t.RecordCount || t.Records[record].FirstT == 0) return false;
    const HlydSettings& settings = hlydSettings();
    bool formDefinition = t.Statements[t.Records[record].FirstS].Flags.has(StatementFlag::FormDescription);
    if (!(formDefinition ? settings.ViewFormDef[kDisplay] : settings.ViewCode[kDisplay])) return false;
    return !(governingStatement(record).Class == StatementClass::Header &&
             displayAttributes().Format[kDisplay].SkipAttributes);
}
void resetEmitterState() { state() = EmitterState{}; }

void HlydDSEmitRequestedData(std::int32_t& record) {
    Surface* surface = displaySurface();
    const FileTableModule& files = fileTable();
    if (state().Active || mainWindow().suspendDrawing || files.wCurrentFile == 0 || !surface) return;
    if (files.wCurrentFile > files.oFile.Count()) return;
    theUi().setBusy(true);
    state().Active = true;
    ScreenEmission(*surface, record).run();
}

}  // namespace hlyd
