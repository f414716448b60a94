#include "display/project_line_layout.h"

#include <vector>

#include "display/font_metrics.h"

namespace hlyd {

namespace {

bool onlyBlanks(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

std::vector<std::string> piecesOf(const std::string& text, const AreaRecord& pos, float x,
                                  const ProjectLineHooks& hooks) {
    std::vector<std::string> pieces{text};
    if (!hooks.textWidth || x + hooks.textWidth(text) <= pos.Right) return pieces;
    float white = layoutMetrics().WhiteSpaceSize[hooks.destination];
    HlydTKSplitForOutput(text, pieces, pos.Right - (white + x) + 1, hooks.destination);
    return pieces;
}

}  // namespace

std::int32_t layoutProjectLine(const std::string& text, AreaRecord& pos, const ProjectLineHooks& hooks) {
    if (!hooks.blankLinesDrawn && onlyBlanks(text)) {
        pos.Top += hooks.lineHeight;
        return 0;
    }
    float x = pos.Left + hooks.indent;
    std::vector<std::string> pieces = piecesOf(text, pos, x, hooks);
    for (std::size_t p = 0; p < pieces.size(); ++p) {
        if (hooks.breakAtBottom && pos.Top > pos.Bottom && !hooks.breakAtBottom(pos)) return -1;
        if (p > 0 && hooks.wrapIndent >= 0) x = pos.Left + hooks.wrapIndent;
        hooks.drawPiece(pieces[p], x, pos.Top, p == 0);
        pos.Top += hooks.lineHeight;
    }
    return static_cast<std::int32_t>(pieces.size()) - 1;
}

}  // namespace hlyd
