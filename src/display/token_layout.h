#pragma once
// Laying a record's tokens on lines of a given width: analysed indentation, one line height for
// mixed fonts, wraps and their marks. The rule serves the screen and the printer.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "analysis/source_model.h"
#include "display/drawn_stretch.h"
#include "settings/attributes.h"

namespace hlyd {

// A stretch of a surface in twips.
struct AreaRecord {
    float Bottom = 0;
    float Height = 0;
    float Left = 0;
    float Right = 0;
    float Top = 0;
    float Width = 0;
};

void HlydTKApplyIndent(const Token& token, std::int32_t level, float& indent, std::string& text,
                       Destination destination);
void HlydTKGetMaxTokenHeight(float& height, const std::vector<TokenElement>& elements, Destination destination,
                             std::int32_t firstToken, std::int32_t lastToken);
void HlydTKSplitForOutput(const std::string& text, std::vector<std::string>& pieces, float width,
                          Destination destination);

// How the gap before a token is measured: its blanks (tabs to their stops) in the space width of
// the font on its left, or as one blank whatever it holds (the declaration lines of a contents
// listing).
enum class GapRule { SpaceWidth, SingleBlank };

// What differs between the destinations while a record is laid out.
struct RecordLayoutHooks {
    GapRule gap = GapRule::SpaceWidth;
    // The last token drawn: the record's own, or (for a declaration) its first statement's last.
    bool toStatementEnd = false;
    // On a surface with pages: called when the next line would reach `pos.Bottom`, the bottom
    // limit; it moves `pos` to the next column or page (Left, Right, Top, Bottom) and answers false
    // when printing must stop. The line goes on at the same distance from the new left edge.
    std::function<bool(AreaRecord& pos)> breakAtBottom;
    // The record's first line is reached: its top and its height (line numbers go there).
    std::function<void(float y, float lineHeight)> firstLine;
    // White behind a text is the paper itself: no box is drawn for it.
    bool whiteIsPaper = false;
    // When not 0, a blank line is as high as this element, whatever its empty token's element is.
    int blankLineElement = 0;
    // When set, receives the text drawn, gaps as blanks.
    std::string* textDrawn = nullptr;
    // Lays the record out without drawing it: how tall it is (the area's Top moves below it) and
    // where its last line ends, measured before it is printed.
    bool measureOnly = false;
    // When set, receives the X at which the record's text ends.
    float* endX = nullptr;
    // Wraps carry their mark and a source line its own " _"; a listing of declarations is no code
    // to copy, and there the marks only took room and read as part of the text.
    bool continuationMarks = true;
    // How many blanks further in than the record's start a wrapped line begins.
    int wrapIndentBlanks = 1;
    // Draws the separator line when the destination calls for one; may move `y` down.
    std::function<void(const Statement& governing, const Record& record, float xWrap, float& y)> separator;
    // Before the record's first token is drawn.
    std::function<void(std::int32_t record)> beforeFirstToken;
    // The connector call for the record's first token (already tested to qualify).
    std::function<void(const AreaRecord& pos, float lineHeight, std::int32_t wraps, std::int32_t record, float xToken)>
            connectors;
    // When set, told where each piece of the line's text and each gap between tokens was drawn, so
    // that the view can map a pointer to the line and a part of the line to the view.
    std::function<void(DrawnStretch stretch)> stretchDrawn;
};

// Deep nesting in a narrow output would leave the text a sliver at the right edge, split one
// character a line. Where an output holds this many mean characters beside a little indentation,
// every line keeps room for them: its deep levels are drawn closer together instead.
constexpr int kLeastCodeChars = 40;
// An output too narrow even for that keeps at least this many, and one more for the blank a
// wrapped line starts with.
constexpr int kLeastRoomChars = 10;
constexpr int kRoomBeforeEdgeChars = kLeastRoomChars + 2;

// Notes how deep the file now in the source tables is nested: an output too narrow for its levels
// at the full indent unit shares its room among them. An emitter calls it before laying a file out.
void planIndentation();

// How far right of `pos.Left` the text of an indent level starts. The levels of the file take the
// destination's indent unit while they fit beside kLeastCodeChars; where they don't, one narrower
// unit, never below a third of a blank; and no level goes past furthestTextStart.
float levelIndent(std::int32_t level, const AreaRecord& pos, Destination destination);

// The room kept right of the furthest start of a record's text, where the output has it: for
// kLeastCodeChars, the mark at a wrapped line's end, and the two blanks that the first piece of a
// split first token loses (it stands one in, and is measured one narrower).
float roomBesideIndent(Destination destination);

// The furthest right that a record's text starts in the area: deeper indentation is capped there,
// so that a narrow output keeps room for the text.
float furthestTextStart(const AreaRecord& pos, Destination destination);

// An output with no right edge (the HTML document) takes its indentation from the view's settings
// and is capped as if its lines were this many characters wide: nested thousands deep, it would
// otherwise grow with the square of the depth.
constexpr int kLineCharsWithoutEdge = 80;
// The most blanks that indent a record's text in such an output.
constexpr int kFurthestTextColumn = kLineCharsWithoutEdge - kRoomBeforeEdgeChars;

// The statement that decides how a record is laid out; a record with none takes the one before.
const Statement& governingStatement(std::int32_t record);

// Lays out and draws one record at `pos`; moves `pos.Top` below it and returns the wraps.
// Returns -1 for a record that is skipped (an attribute line with SkipAttributes set).
std::int32_t layoutRecord(Destination destination, std::int32_t record, AreaRecord& pos,
                          const RecordLayoutHooks& hooks);

}  // namespace hlyd
