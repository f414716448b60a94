#include "display/token_layout.h"

#include <algorithm>
#include <cmath>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "display/font_metrics.h"
#include "display/piece_break.h"
#include "display/visible_text.h"
#include "files/file_table.h"
#include "platform/surface.h"
#include "settings/ini_handler.h"

namespace hlyd {

namespace {

const FormatRecord& formatOf(Destination dest) { return displayAttributes().Format[dest]; }
AttributeRecord& attributesOf(int element, Destination dest) {
    return displayAttributes().Elements[element].slot[dest];
}

// How deep the file being laid out is nested, as planIndentation found it.
std::int32_t plannedDepth = 0;

// Levels share the room of a narrow output evenly up to this depth.
constexpr std::int32_t kMostSharedLevels = 24;
// Levels kept apart even where the output leaves no room beside kLeastCodeChars.
constexpr int kLeastDistinctLevels = 12;

// The destination's indent unit: IndentAmount blanks of IndentSize.
float indentUnit(Destination dest) {
    return static_cast<float>(formatOf(dest).IndentAmount) * layoutMetrics().IndentSize[dest];
}

// Connector lines closer than a third of a blank could not be told apart on paper.
float leastIndentUnit(Destination dest) { return layoutMetrics().WhiteSpaceSize[dest] / 3; }

// A character of code: the mean width of an identifier's. (WhiteSpaceSize is six sevenths of it.)
float characterWidth(Destination dest) {
    std::int32_t x = attributesOf(kElemIdentifiers, dest).XWidth;
    return x > 0 ? static_cast<float>(x) : layoutMetrics().WhiteSpaceSize[dest];
}

bool blanksOnly(const std::string& text) { return text.find_first_not_of(" \t") == std::string::npos; }

// A line that layout wraps is marked where the line after it begins, in the room of the wrap
// indent under the record's first character: the eye finds the mark where it resumes reading, the
// marks of a listing stand in one column instead of trailing ragged line ends, and they take no
// room from the line they follow. The mark is "»", which no VB code can hold there, in a grey and
// in the font of the text it stands before. A " _" there read as the code's own line continuation
// and was copied out as one.
constexpr char kWrapMark[] = "\xBB";
constexpr std::uint32_t kWrapMarkColour = 0x767676;  // 4.5:1 on white: quiet, yet legible in print

// The room of a token's shown text, handed from one record's painter to the next: a painter per
// record that made its own buffer allocated and freed one for most records of a listing. A painter
// started by a hook while another paints (a contents entry at a page's break) takes a fresh one.
std::string spareShown;

// One record on one surface: the pen is tracked here so that the surface is told only changes.
class RecordPainter {
public:
    RecordPainter(Destination dest, std::int32_t record, AreaRecord& pos, const RecordLayoutHooks& hooks)
        : dest_(dest),
          s_(*surfaceFor(dest)),
          t_(theSourceTables()),
          record_(record),
          pos_(pos),
          hooks_(hooks),
          f_(formatOf(dest)),
          m_(layoutMetrics()) {
        shown_.swap(spareShown);
    }
    ~RecordPainter() { shown_.swap(spareShown); }
    RecordPainter(const RecordPainter&) = delete;
    RecordPainter& operator=(const RecordPainter&) = delete;

    std::int32_t run();

private:
    int elementOf(std::int32_t token) const;
    // Layout's own wraps are marked.
    bool wrapMarks() const { return hooks_.continuationMarks && f_.ContinueGenerate; }
    // The source continues this token's line with " _", and it is to be shown.
    bool sourceContinues(const Token& token) const {
        return hooks_.continuationMarks && f_.ContinueHonor && (token.Continued & 1);
    }
    float wrapIndent() const { return static_cast<float>(hooks_.wrapIndentBlanks) * m_.WhiteSpaceSize[dest_]; }
    float continuationIndent(AttributeRecord& a);
    bool drawable() const { return yText_ <= 32766 && !hooks_.measureOnly; }  // the coordinate limit of a surface
    void firstTokenStart(const Token& token);
    void placeToken(std::int32_t i, const Token& token, const std::string& text, AttributeRecord& a,
                    std::vector<std::string>& pieces);
    float splitWidth(float limitX, AttributeRecord& a);
    void drawPieces(const std::string& text, AttributeRecord& a, const std::vector<std::string>& pieces);
    // `width` below zero: measured here, in the attributes.
    void drawText(const std::string& text, AttributeRecord& a, float yText, float yNext, float width = -1);
    void printShown(const std::string& text);
    void useMarkAttributes(const AttributeRecord& a);
    void wrapMark(const AttributeRecord& a);
    void sourceContinuation();
    void movePen(float x, float y);
    // Sets the style on the surface unless this painter left it there last.
    void useStyle(AttributeRecord& a);
    // A hook may have drawn in a style of its own: the next text sets its style again.
    void styleUnknown() { styleOn_ = nullptr; }
    void tellPiece(std::size_t shownLength, float x, float width, const AttributeRecord* a);
    void tellGap(std::int32_t next, std::size_t blanks, float xFrom);
    bool boxed(const AttributeRecord& a) const { return !hooks_.whiteIsPaper || a.BackColor != kWhite; }
    bool breakIfFull();
    void gapBefore(std::int32_t next, const AttributeRecord& left);
    std::int32_t lastToken(const Record& r) const;

    Destination dest_;
    Surface& s_;
    SourceTables& t_;
    std::int32_t record_;
    AreaRecord& pos_;
    const RecordLayoutHooks& hooks_;
    const FormatRecord& f_;
    const LayoutMetrics& m_;
    bool procedureLine_ = false;
    float x_ = 0, y_ = 0, xWrap_ = 0, lineHeight_ = 0, yText_ = 0, yNext_ = 0;
    float tokenWidth_ = 0;  // of the token placed last, in its attributes
    float penX_ = -1, penY_ = -1;
    // The attributes whose style the surface is in, as this painter set it: a token is measured and
    // drawn in one style, and setting it twice was a tenth of laying a listing out.
    const AttributeRecord* styleOn_ = nullptr;
    AttributeRecord markAttributes_;
    const AttributeRecord* markFor_ = nullptr;  // the attributes the mark's were made from
    float markRoom_ = 0;                        // the mark and a blank in them
    std::size_t lastLength_ = 0;                // characters shown of the token drawn last
    // The source text of a token shown with control characters in caret notation, the place in
    // it that the next piece drawn starts from, and whether a caret pair was cut between pieces.
    const std::string_view* source_ = nullptr;
    std::string_view sourceText_;  // what source_ points at while a token is drawn
    std::size_t sourcePos_ = 0;
    std::size_t tokenColumn_ = 0, shownPos_ = 0;  // where the token's shown text starts, and how much of it is out
    std::size_t pendingShown_ = 0;                // characters of a byte's showing that a split sent to the next piece
    std::int32_t wraps_ = 0;
    std::int32_t column_ = 0;  // characters since the code's start, for tab stops
    // For the stretches told to the view: where each token starts in the line, the token being
    // drawn, and how many of its shown characters the pieces before took.
    std::vector<std::int32_t> lineColumns_;
    std::string shown_;  // a token's text as shown, in a buffer kept from token to token
    std::int32_t stretchToken_ = 0;
    std::size_t stretchShown_ = 0;
    bool stopped_ = false;
};

// On paper a line that would reach the bottom limit goes to the next column or page first; the
// record keeps its place relative to the left edge, which may have moved with the column.
bool RecordPainter::breakIfFull() {
    if (!hooks_.breakAtBottom || y_ + lineHeight_ < pos_.Bottom) return true;
    float oldLeft = pos_.Left;
    styleUnknown();  // headings and footings are drawn in their own styles
    if (!hooks_.breakAtBottom(pos_)) {
        stopped_ = true;
        return false;
    }
    x_ += pos_.Left - oldLeft;
    xWrap_ += pos_.Left - oldLeft;
    y_ = pos_.Top;
    yNext_ = y_ + lineHeight_;
    penX_ = penY_ = -1;
    return true;
}

// Blanks advance by the real width of a blank in the font on their left, as the source's columns
// were typed in a fixed-width font: an averaged width let aligned `=` signs and comments wander.
// A tab goes on to the next multiple of the tab width, counted from where the code starts.
void RecordPainter::gapBefore(std::int32_t next, const AttributeRecord& left) {
    std::string_view lead = t_.Tokens[next].leadingSpace();
    column_ += static_cast<std::int32_t>(lastLength_);
    std::int32_t blanks = 0;
    for (char c : lead) blanks += c == '\t' && f_.TabWidth > 0 ? f_.TabWidth - (column_ + blanks) % f_.TabWidth : 1;
    float unit = static_cast<float>(left.SpaceWidth);
    if (hooks_.gap == GapRule::SingleBlank) {
        blanks = lead.empty() ? 0 : 1;
        unit = m_.WhiteSpaceSize[dest_];
    }
    column_ += blanks;
    float xFrom = x_;
    x_ += static_cast<float>(blanks) * unit;
    if (hooks_.textDrawn) hooks_.textDrawn->append(static_cast<std::size_t>(blanks), ' ');
    tellGap(next, lead.size(), xFrom);
}

void RecordPainter::tellPiece(std::size_t shownLength, float x, float width, const AttributeRecord* a) {
    if (!hooks_.stretchDrawn) return;
    std::string_view text = t_.Tokens[stretchToken_].text();
    std::size_t from = sourceBytesOfShown(text, stretchShown_, tokenColumn_, f_.TabWidth);
    std::size_t shownColumn = tokenColumn_ + stretchShown_;
    stretchShown_ += shownLength;
    std::size_t to = sourceBytesOfShown(text, stretchShown_, tokenColumn_, f_.TabWidth);
    std::size_t index = static_cast<std::size_t>(stretchToken_ - t_.Records[record_].FirstT);
    if (!drawable() || to == from || index >= lineColumns_.size()) return;
    DrawnStretch stretch{record_,
                         lineColumns_.at(index) + static_cast<std::int32_t>(from),
                         static_cast<std::int32_t>(to - from),
                         yNext_ - lineHeight_,
                         yNext_,
                         x,
                         x + width,
                         a,
                         shownColumn,
                         f_.TabWidth,
                         {}};
    hooks_.stretchDrawn(std::move(stretch));
}

// The blanks between two tokens take an even share of the gap each (stretchEdges), tabs as much
// as blanks: a pointer in a gap finds the nearer token's side.
void RecordPainter::tellGap(std::int32_t next, std::size_t blanks, float xFrom) {
    std::size_t index = static_cast<std::size_t>(next - t_.Records[record_].FirstT);
    if (!hooks_.stretchDrawn || !drawable() || blanks == 0 || index >= lineColumns_.size()) return;
    DrawnStretch stretch{record_,
                         std::max(0, lineColumns_.at(index) - static_cast<std::int32_t>(blanks)),
                         static_cast<std::int32_t>(blanks),
                         yNext_ - lineHeight_,
                         yNext_,
                         xFrom,
                         x_,
                         nullptr,
                         0,
                         0,
                         {}};
    hooks_.stretchDrawn(std::move(stretch));
}

std::int32_t RecordPainter::lastToken(const Record& r) const {
    if (!hooks_.toStatementEnd) return r.LastT;
    return t_.Statements[r.FirstS].LastToken;
}

int RecordPainter::elementOf(std::int32_t token) const {
    if (procedureLine_) return kElemProcedures;
    const std::vector<TokenElement>& elements = fileTable().TokenElements;
    int e = token < static_cast<std::int32_t>(elements.size()) ? elements[token] : 0;
    return e >= 1 && e <= kElementCount ? e : kElemIdentifiers;
}

void RecordPainter::useStyle(AttributeRecord& a) {
    if (styleOn_ == &a) return;
    setAttributesOn(s_, a);
    styleOn_ = &a;
}

void RecordPainter::movePen(float x, float y) {
    if (penX_ != x) s_.setCurrentX(x);
    if (penY_ != y) s_.setCurrentY(y);
    penX_ = x;
    penY_ = y;
}

void RecordPainter::drawText(const std::string& text, AttributeRecord& a, float yText, float yNext, float width) {
    useStyle(a);
    if (width < 0) width = s_.textWidth(text);
    if (boxed(a)) s_.filledBox(x_, yText, x_ + width, yNext, a.BackColor);
    penX_ = x_ + width;
    penY_ = yNext;
    movePen(x_, yText);
    printShown(text);
    penX_ = x_ + width;
    if (hooks_.textDrawn) hooks_.textDrawn->append(text);
    tellPiece(text.size(), x_, width, &a);
}

// Each "^A" that shows a control character is printed as standing for the source's byte, which a
// surface that can (a PDF) gives back to a reader copying the text. A piece may end inside a
// byte's showing (a caret pair, a tab's blanks): the rest opens the next piece as plain text.
void RecordPainter::printShown(const std::string& text) {
    if (!source_) {
        s_.print(text);
        return;
    }
    std::size_t i = std::min(pendingShown_, text.size()), run = 0;
    pendingShown_ -= i;
    auto flush = [&] {
        if (i > run) s_.print(text.substr(run, i - run));
    };
    while (i < text.size() && sourcePos_ < source_->size()) {
        auto c = static_cast<unsigned char>((*source_)[sourcePos_++]);
        std::size_t n = shownLength(c, tokenColumn_ + shownPos_ + i, f_.TabWidth);
        if (i + n > text.size()) {
            pendingShown_ = i + n - text.size();
            i = text.size();
        } else if (invisibleControl(c)) {
            flush();
            s_.printStandingFor(text.substr(i, n), std::string(1, static_cast<char>(c)));
            i += n, run = i;
        } else {
            i += n;
        }
    }
    i = text.size();
    flush();
    shownPos_ += text.size();
}

// The source's own " _" at the end of its line, in the KeyWords attributes, at the pen: it is the
// code's text and prints as such.
void RecordPainter::sourceContinuation() {
    AttributeRecord& k = attributesOf(kElemKeyWords, dest_);
    useStyle(k);
    float width = s_.textWidth(" _");
    float x = penX_ < 0 ? x_ : penX_;
    float y = penY_ < 0 ? yText_ : penY_;
    if (hooks_.measureOnly) {
        penX_ = x + width;
        return;
    }
    if (boxed(k)) s_.filledBox(x, y, x + width, y + static_cast<float>(k.Height), k.BackColor);
    penX_ = x + width;
    penY_ = y + static_cast<float>(k.Height);
    movePen(x, y);
    s_.print(" _");
    penX_ = x + width;
}

// The mark's attributes: those of the text it stands before, in grey and plain. The surface is
// left in them.
void RecordPainter::useMarkAttributes(const AttributeRecord& a) {
    if (markFor_ != &a) {
        markAttributes_ = a;
        markAttributes_.ForeColor = kWrapMarkColour;
        markAttributes_.Font.Bold = markAttributes_.Font.Italic = false;
        markAttributes_.Font.Underline = markAttributes_.Font.Strikethrough = false;
        styleUnknown();  // the same record, made afresh from other attributes
        useStyle(markAttributes_);
        markRoom_ = s_.textWidth(std::string(kWrapMark) + " ");
        markFor_ = &a;
        return;
    }
    useStyle(markAttributes_);
}

// Where a wrapped line of text in `a` begins, from XWrap: the wrap indent, or, with marks, room
// for the mark and a blank when the wrap indent is narrower. The surface is left in `a`.
float RecordPainter::continuationIndent(AttributeRecord& a) {
    if (!wrapMarks()) return wrapIndent();
    if (markFor_ != &a) {
        useMarkAttributes(a);
        useStyle(a);
    }
    return std::max(wrapIndent(), markRoom_);
}

// The mark of a wrap at XWrap on the line that `y_` has just moved to, before text in `a`. It is no
// text of the source: a surface that can (a PDF) leaves it out of what a reader copies.
void RecordPainter::wrapMark(const AttributeRecord& a) {
    if (!wrapMarks() || stopped_ || hooks_.measureOnly) return;
    float y = y_ + lineHeight_ - static_cast<float>(a.Height);
    if (y > 32766) return;
    useMarkAttributes(a);
    movePen(xWrap_, y);
    s_.printMark(kWrapMark);
    penX_ = s_.currentX();
}

void RecordPainter::firstTokenStart(const Token& token) {
    std::int32_t first = t_.Records[record_].FirstT;
    if (f_.Indent) {
        x_ += levelIndent(t_.Records[record_].Indent, pos_, dest_);
        if (first > 1 && t_.Tokens[first - 1].Continued == 1) x_ += m_.WhiteSpaceSize[dest_];
    } else {
        // The source's own indentation, blank by blank in the first token's font and tabs to
        // their stops, counted from the line's start, as the editor it was typed in showed it.
        std::int32_t columns = 0;
        for (char c : token.leadingSpace())
            columns += c == '\t' && f_.TabWidth > 0 ? f_.TabWidth - columns % f_.TabWidth : 1;
        x_ += static_cast<float>(columns) * static_cast<float>(attributesOf(elementOf(first), dest_).SpaceWidth);
        column_ = columns;
    }
    x_ = std::min(x_, furthestTextStart(pos_, dest_));
    xWrap_ = x_;
}

// Decides where the token stands and into which pieces it falls.
void RecordPainter::placeToken(std::int32_t i, const Token& token, const std::string& text, AttributeRecord& a,
                               std::vector<std::string>& pieces) {
    const Record& r = t_.Records[record_];
    bool first = i == r.FirstT;
    useStyle(a);
    float width = tokenWidth_ = s_.textWidth(text);
    // Only the source's own " _" is drawn behind a line's text and needs room kept for it there.
    float limitX = sourceContinues(token) ? pos_.Right - m_.ContinueSize[dest_] : pos_.Right;
    pieces.clear();  // the token whole, as nearly every one stands: no copy of it, no measuring again
    if (x_ + width <= limitX) return;
    std::size_t lead = text.find_first_not_of(' ');
    bool comment = first && lead != std::string::npos && text[lead] == '\'';
    // A first token stays on its line; any other goes on to the next one, after the mark.
    x_ = comment ? xWrap_ : xWrap_ + (first ? wrapIndent() : continuationIndent(a));
    if (x_ + width <= limitX) {
        ++wraps_;
    } else {
        if (x_ > limitX) {
            xWrap_ = pos_.Left;
            x_ = first ? pos_.Left : pos_.Left + continuationIndent(a);
        }
        float room = splitWidth(limitX, a);
        HlydTKSplitForOutput(text, pieces, room, dest_);
    }
    if (!first) {
        y_ += lineHeight_;
        if (breakIfFull()) wrapMark(a);
    }
}

// The width each piece of a split token may take: the first stands at X, the others the
// continuation indent in from XWrap, and none may pass the limit.
float RecordPainter::splitWidth(float limitX, AttributeRecord& a) {
    float width = limitX - (x_ + m_.WhiteSpaceSize[dest_]) + 1;
    float furthestStart = std::max(x_, xWrap_ + continuationIndent(a));
    return std::min(width, limitX - furthestStart);
}

// Draws the pieces; X is left at the right end of the text drawn last, so a token of blanks
// leaves it where the text before it ended.
void RecordPainter::drawPieces(const std::string& text, AttributeRecord& a, const std::vector<std::string>& pieces) {
    if (blanksOnly(text)) {
        if (penX_ >= 0) x_ = penX_;
        return;
    }
    if (pieces.empty()) {
        if (drawable()) drawText(text, a, yText_, yNext_, tokenWidth_);
        else x_ += tokenWidth_, penX_ = x_, tellPiece(text.size(), x_, 0, nullptr);
        x_ = penX_;
        return;
    }
    for (std::size_t p = 0; p < pieces.size(); ++p) {
        if (drawable()) drawText(pieces[p], a, yText_, yNext_);
        else x_ += s_.textWidth(pieces[p]), penX_ = x_, tellPiece(pieces[p].size(), x_, 0, nullptr);
        if (p + 1 == pieces.size()) break;
        x_ = xWrap_ + continuationIndent(a);
        y_ = yNext_;
        if (!breakIfFull()) return;
        yNext_ = y_ + lineHeight_;
        yText_ = y_ + lineHeight_ - static_cast<float>(a.Height);
        wrapMark(a);
        ++wraps_;
    }
    x_ = penX_;
}

std::int32_t RecordPainter::run() {
    const Record& r = t_.Records[record_];
    const Statement& governing = governingStatement(record_);
    if (governing.Class == StatementClass::Header && f_.SkipAttributes) return -1;
    std::int32_t last = lastToken(r);
    xWrap_ = m_.WhiteSpaceSize[dest_] > pos_.Right ? pos_.Right - m_.WhiteSpaceSize[dest_] : pos_.Left;
    x_ = pos_.Left;
    y_ = pos_.Top;
    procedureLine_ = t_.Statements[r.FirstS].Class == StatementClass::ProcStart ||
                     t_.Statements[r.LastS].Class == StatementClass::ProcStart;
    bool blankLine = governing.Class == StatementClass::Blank && hooks_.blankLineElement != 0;
    if (procedureLine_) lineHeight_ = static_cast<float>(attributesOf(kElemProcedures, dest_).Height);
    else if (blankLine) lineHeight_ = static_cast<float>(attributesOf(hooks_.blankLineElement, dest_).Height);
    else HlydTKGetMaxTokenHeight(lineHeight_, fileTable().TokenElements, dest_, r.FirstT, last);
    if (hooks_.separator) hooks_.separator(governing, r, xWrap_, y_), styleUnknown();
    if (!breakIfFull()) return wraps_;
    yNext_ = y_ + lineHeight_;
    std::vector<std::string> pieces;
    if (hooks_.stretchDrawn) lineColumns_ = tokenColumns(t_, record_);
    for (std::int32_t i = r.FirstT; i >= 1 && i <= last && !stopped_; ++i) {
        const Token& token = t_.Tokens[i];
        stretchToken_ = i;
        stretchShown_ = 0;
        AttributeRecord& a = attributesOf(elementOf(i), dest_);
        if (i == r.FirstT) firstTokenStart(token);
        const std::string& text = visibleText(token.text(), shown_, static_cast<std::size_t>(column_), f_.TabWidth);
        placeToken(i, token, text, a, pieces);
        if (stopped_) break;
        yNext_ = y_ + lineHeight_;
        yText_ = y_ + lineHeight_ - static_cast<float>(a.Height);
        if (i == r.FirstT) {
            if (hooks_.beforeFirstToken) hooks_.beforeFirstToken(record_), styleUnknown();
            if (hooks_.firstLine) {
                hooks_.firstLine(y_, lineHeight_);
                styleUnknown();
                penX_ = penY_ = -1;  // the pen is where the line's number left it
            }
            bool opensOrCloses =
                    governing.Flags.has(StatementFlag::Indent) || governing.Flags.has(StatementFlag::Outdent);
            if (f_.ConnectControls && r.FirstT == governing.FirstToken && opensOrCloses && hooks_.connectors) {
                hooks_.connectors(pos_, lineHeight_, wraps_, record_, x_);
                styleUnknown();
                penX_ = s_.currentX();
                penY_ = s_.currentY();
            }
        }
        sourceText_ = token.text();
        source_ = text.size() != sourceText_.size() ? &sourceText_ : nullptr;
        sourcePos_ = 0;
        tokenColumn_ = static_cast<std::size_t>(column_), shownPos_ = 0, pendingShown_ = 0;
        drawPieces(text, a, pieces);
        source_ = nullptr;
        lastLength_ = text.size();
        if (i < last) gapBefore(i + 1, a);
    }
    if (!stopped_ && last >= 1 && hooks_.continuationMarks && !hooks_.measureOnly && f_.ContinueHonor &&
        (t_.Tokens[last].Continued & 1))
        sourceContinuation();
    if (hooks_.endX) *hooks_.endX = x_;
    pos_.Top = yNext_;
    return wraps_;
}

}  // namespace

void HlydTKApplyIndent(const Token& token, std::int32_t level, float& indent, std::string& text, Destination dest) {
    indent = indentUnit(dest) * static_cast<float>(level);
    text = token.text();
}

void HlydTKGetMaxTokenHeight(float& height, const std::vector<TokenElement>& elements, Destination dest,
                             std::int32_t firstToken, std::int32_t lastToken) {
    float ceiling = layoutMetrics().MaxFontHeight[dest];
    auto heightOf = [&](std::int32_t token) {
        int e = token < static_cast<std::int32_t>(elements.size()) ? elements[token] : 0;
        if (e < 1 || e > kElementCount) e = kElemIdentifiers;
        return static_cast<float>(attributesOf(e, dest).Height);
    };
    height = heightOf(firstToken);
    for (std::int32_t i = firstToken + 1; i <= lastToken && height < ceiling; ++i)
        height = std::max(height, heightOf(i));
    if (theDebug().TraceApplication) theLog().LogData("MaxHeight=" + numberText(height));
}

// A piece ends after a blank, an operator or a comma when one is within reach (piece_break.h).
// Each piece is measured, not the whole rest of the text for every piece: that made a long project
// line quadratic. The rest's width is kept as the whole width less the pieces cut off, and the rest
// itself is measured only when that says it may fit, when it is about one piece long.
void HlydTKSplitForOutput(const std::string& text, std::vector<std::string>& pieces, float width, Destination dest) {
    Surface& s = *surfaceFor(dest);
    if (width <= 0) width = 1;
    pieces.clear();
    std::size_t position = 0;
    double restWidth = s.textWidth(text);
    do {
        std::size_t restLength = text.size() - position;
        if (restWidth <= width) {
            std::string rest = text.substr(position);
            if (position != 0) restWidth = s.textWidth(rest);  // the running figure may drift a little
            if (restWidth <= width) {
                pieces.push_back(std::move(rest));
                break;
            }
        }
        auto widthOf = [&](long length) {
            return s.textWidth(text.substr(position, static_cast<std::size_t>(length)));
        };
        long length = std::lround(width / restWidth * static_cast<double>(restLength));
        length = std::clamp(length, 1L, static_cast<long>(restLength));
        float pieceWidth = -1;  // the width of the longest length measured to fit
        for (float w; length <= static_cast<long>(restLength) && (w = widthOf(length)) <= width; ++length)
            pieceWidth = w;
        --length;
        // Only an estimate that was too long already has to step down.
        if (pieceWidth < 0)
            while (length >= 1 && (pieceWidth = widthOf(length)) > width) --length;
        if (length < 1) length = 1, pieceWidth = widthOf(1);
        if (auto atBreak = static_cast<long>(pieceLengthAtBreak(text, position, static_cast<std::size_t>(length)));
            atBreak != length)
            length = atBreak, pieceWidth = widthOf(length);
        pieces.push_back(text.substr(position, static_cast<std::size_t>(length)));
        position += static_cast<std::size_t>(length);
        restWidth -= pieceWidth;
    } while (position < text.size());
    if (theDebug().TraceApplication) {
        std::string log = "TokenIn=|" + text + "|\r\nWidth=" + numberText(width) + "\r\nTokenOut=...";
        for (const std::string& p : pieces) log += "\r\n|" + p + "|";
        theLog().LogData(log);
    }
}

void planIndentation() {
    const SourceTables& t = theSourceTables();
    std::int32_t deepest = 0;
    for (std::int32_t r = 1; r <= t.RecordCount && r <= t.Records.UBound(); ++r)
        deepest = std::max(deepest, t.Records[r].Indent);
    plannedDepth = deepest;
}

// The levels share the room evenly, so that their connector lines stand at even distances; a
// unit narrowed for the deeper levels alone would bunch their lines a few points apart. One level
// nested far deeper than the rest does not squeeze the whole file: the sharing stops at
// kMostSharedLevels, and the levels beyond stand at the furthest start.
float levelIndent(std::int32_t level, const AreaRecord& pos, Destination dest) {
    float unit = indentUnit(dest);
    float room = furthestTextStart(pos, dest) - pos.Left;
    float levels = static_cast<float>(std::clamp(plannedDepth, 1, kMostSharedLevels));
    if (unit * levels > room) unit = std::max(room / levels, std::min(unit, leastIndentUnit(dest)));
    return std::min(unit * static_cast<float>(std::max(level, 0)), room);
}

float roomBesideIndent(Destination dest) {
    const LayoutMetrics& m = layoutMetrics();
    return static_cast<float>(kLeastCodeChars) * characterWidth(dest) + 2 * m.WhiteSpaceSize[dest] +
           m.ContinueSize[dest];
}

// Room beside the indentation is kept right of the furthest start. A narrower output still keeps
// room for kLeastDistinctLevels levels at the least unit, so that nesting stays visible; and at
// any width a first token split on its wrapped lines (one WhiteSpaceSize in, less one more) gets
// kLeastRoomChars mean characters a piece.
float furthestTextStart(const AreaRecord& pos, Destination dest) {
    const LayoutMetrics& m = layoutMetrics();
    float width = pos.Right - pos.Left;
    float beside = roomBesideIndent(dest);
    float least = static_cast<float>(kLeastDistinctLevels) * leastIndentUnit(dest);
    float most = width - static_cast<float>(kRoomBeforeEdgeChars) * m.WhiteSpaceSize[dest];
    // Whole twips: a start a hair right of the room would cost the line its last character.
    return pos.Left + std::floor(std::max(0.0f, std::min(std::max(width - beside, least), most)));
}

const Statement& governingStatement(std::int32_t record) {
    SourceTables& t = theSourceTables();
    Record& r = t.Records[record];
    if (r.FirstS == 0 && r.LastS == 0 && record > 1) r.FirstS = t.Records[record - 1].FirstS;
    return t.Statements[r.FirstS != 0 ? r.FirstS : r.LastS];
}

std::int32_t layoutRecord(Destination dest, std::int32_t record, AreaRecord& pos, const RecordLayoutHooks& hooks) {
    if (!surfaceFor(dest)) return -1;
    return RecordPainter(dest, record, pos, hooks).run();
}

}  // namespace hlyd
