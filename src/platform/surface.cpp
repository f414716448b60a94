#include "platform/surface.h"

namespace hlyd {

int measuredLines(std::string_view text) {
    int lines = 1;
    for (std::size_t at = text.find("\r\n"); at != std::string_view::npos; at = text.find("\r\n", at + 2)) ++lines;
    return lines;
}

void Surface::setTextStyle(const TextStyle& style) {
    if (foreColor() != style.colour) setForeColor(style.colour);
    if (fontName() != style.fontName) setFontName(std::string(style.fontName));
    // Twice: a new name or size may make the surface settle on another size.
    if (fontSize() != style.points) setFontSize(style.points);
    if (fontSize() != style.points) setFontSize(style.points);
    if (fontBold() != style.bold) setFontBold(style.bold);
    if (fontItalic() != style.italic) setFontItalic(style.italic);
    if (fontStrikethrough() != style.strikethrough) setFontStrikethrough(style.strikethrough);
    if (fontUnderline() != style.underline) setFontUnderline(style.underline);
}

void setDisplaySurface(Surface* surface) { currentSession().ports.display = surface; }
void setPrinterSurface(Surface* surface) { currentSession().ports.printerSurface = surface; }

}  // namespace hlyd
