#include "display/display_state.h"
#include "display/view_selection.h"

#include <algorithm>

#include "analysis/source_model.h"
#include "display/screen_emitter.h"
#include "display/view_map.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "platform/surface.h"

namespace hlyd {

namespace {

ViewSelection& selection() { return displayState().selection; }

const RecordTexts& texts() { return *theSourceTables().Texts; }
bool current() { return selection().of == &texts(); }

std::int32_t lineLength(std::int32_t record) { return static_cast<std::int32_t>(texts().line(record).size()); }

// The next record the view shows from `record` on in the direction, or 0.
std::int32_t shownRecord(std::int32_t record, int step) {
    for (std::int32_t r = record; r >= 1 && r <= texts().count(); r += step)
        if (recordOnScreen(r)) return r;
    return 0;
}

TextPlace moved(TextPlace place, CaretMove move) {
    switch (move) {
        case CaretMove::Left:
            if (place.column > 0) return {place.record, place.column - 1};
            if (std::int32_t r = shownRecord(place.record - 1, -1)) return {r, lineLength(r)};
            return place;
        case CaretMove::Right:
            if (place.column < lineLength(place.record)) return {place.record, place.column + 1};
            if (std::int32_t r = shownRecord(place.record + 1, 1)) return {r, 0};
            return place;
        case CaretMove::Up:
        case CaretMove::Down: {
            std::int32_t r =
                    shownRecord(place.record + (move == CaretMove::Up ? -1 : 1), move == CaretMove::Up ? -1 : 1);
            return r ? TextPlace{r, std::min(place.column, lineLength(r))} : place;
        }
    }
    return place;
}

float viewBottom() {
    Surface* surface = displaySurface();
    return surface ? surface->height() : 0;
}

}  // namespace

ViewSelection& viewSelection() { return selection(); }

TextPlace selectionStart() {
    if (!current()) return {};
    return before(selection().caret, selection().anchor) ? selection().caret : selection().anchor;
}

TextPlace selectionEnd() {
    if (!current()) return {};
    return before(selection().caret, selection().anchor) ? selection().anchor : selection().caret;
}

bool selectionEmpty() { return !before(selectionStart(), selectionEnd()); }

void selectFrom(TextPlace place, bool extend) {
    if (!extend || !current()) selection().anchor = place;
    selection().caret = place;
    selection().of = &texts();
}

void selectTo(TextPlace place) {
    if (!current()) return selectFrom(place, false);
    selection().caret = place;
}

void selectAll() {
    std::int32_t first = shownRecord(1, 1);
    std::int32_t last = shownRecord(texts().count(), -1);
    if (first == 0) return void(selection() = ViewSelection{});
    selection() = ViewSelection{{first, 0}, {last, lineLength(last)}, &texts()};
}

void selectHit(const TextHit& hit) {
    selection() = ViewSelection{{hit.record, hit.column}, {hit.record, hit.column + hit.length}, &texts()};
}

void selectWordAt(TextPlace place) {
    if (place.record < 1 || place.record > texts().count()) return;
    std::string_view line = texts().line(place.record);
    auto isWord = [&](std::size_t i) { return i < line.size() && wordByte(static_cast<unsigned char>(line[i])); };
    std::size_t at = std::min(line.size(), static_cast<std::size_t>(std::max(0, place.column)));
    if (!isWord(at) && at > 0 && isWord(at - 1)) --at;
    std::size_t begin = at, end = std::min(line.size(), at + 1);
    if (isWord(at)) {
        while (begin > 0 && isWord(begin - 1)) --begin;
        while (isWord(end)) ++end;
    }
    selection() = ViewSelection{
            {place.record, static_cast<std::int32_t>(begin)}, {place.record, static_cast<std::int32_t>(end)}, &texts()};
}

bool scrollForDrag(bool down) {
    const EmitterState& view = emitterState();
    std::int32_t before = view.FirstRecord;
    picShow_KeyDown(down ? kKeyDown : kKeyUp, 0);
    return view.FirstRecord != before;
}

void extendSelection(CaretMove move) {
    if (!current()) {
        std::int32_t top = shownRecord(std::max(1, emitterState().FirstRecord), 1);
        if (top == 0) return;
        selectFrom({top, 0}, false);
    }
    selection().caret = moved(selection().caret, move);
    revealPlace(selection().caret);
}

std::string selectedText(const std::string& lineEnd) {
    std::string text;
    if (selectionEmpty()) return text;
    TextPlace from = selectionStart(), to = selectionEnd();
    bool firstLine = true;
    for (std::int32_t r = from.record; r <= to.record; ++r) {
        if (!recordOnScreen(r)) continue;
        std::string_view line = texts().line(r);
        std::size_t begin = r == from.record ? std::min(line.size(), static_cast<std::size_t>(from.column)) : 0;
        std::size_t end = r == to.record ? std::min(line.size(), static_cast<std::size_t>(to.column)) : line.size();
        if (!firstLine) text += lineEnd;
        text.append(line.substr(begin, end - begin));
        firstLine = false;
    }
    return text;
}

// A place above the view brings its record to the top, one far below to the middle; one just
// below scrolls the view down a line at a time until it is in (how far the lines above it wrap
// decides where it lands).
void revealPlace(TextPlace place) {
    if (place.record < 1 || placeShown(viewMap(), place, viewBottom())) return;
    const EmitterState& view = emitterState();
    std::int32_t shownLines = std::max(1, view.LastRecord - view.FirstRecord);
    if (place.record <= view.FirstRecord || view.FirstRecord < 1 || place.record > view.LastRecord + 2) {
        std::int32_t record =
                place.record <= view.FirstRecord ? place.record : std::max(1, place.record - shownLines / 2);
        HlydDSEmitRequestedData(record);
        if (placeShown(viewMap(), place, viewBottom())) return;
    }
    for (int step = 0; step < 1000 && !placeShown(viewMap(), place, viewBottom()); ++step) {
        std::int32_t before = view.FirstRecord;
        picShow_KeyDown(kKeyDown, 0);
        if (view.FirstRecord == before) break;
    }
}

}  // namespace hlyd
