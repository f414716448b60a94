#pragma once
// A drawing surface in twips: what the layout needs of the screen's hidden picture and of a
// printer page. Fonts are set by property; a name the device lacks reads back different.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/destination.h"
#include "platform/session.h"

namespace hlyd {

// A font and colour to draw text in, all at once.
struct TextStyle {
    std::string_view fontName;
    double points = 0;
    bool bold = false, italic = false, underline = false, strikethrough = false;
    std::uint32_t colour = 0;
};

class Surface {
public:
    virtual ~Surface() = default;

    // The current font. Writing a property acts at once on later measuring and printing.
    virtual std::string fontName() const = 0;
    virtual void setFontName(const std::string& name) = 0;
    virtual double fontSize() const = 0;  // points
    virtual void setFontSize(double points) = 0;
    virtual bool fontBold() const = 0;
    virtual void setFontBold(bool on) = 0;
    virtual bool fontItalic() const = 0;
    virtual void setFontItalic(bool on) = 0;
    virtual bool fontUnderline() const = 0;
    virtual void setFontUnderline(bool on) = 0;
    virtual bool fontStrikethrough() const = 0;
    virtual void setFontStrikethrough(bool on) = 0;

    virtual std::uint32_t foreColor() const = 0;
    virtual void setForeColor(std::uint32_t colour) = 0;
    // Sets each property of the style that differs, colour first. Layout sets a style for nearly
    // every token: a surface that holds its font in fields may compare them in one call.
    virtual void setTextStyle(const TextStyle& style);

    virtual float textWidth(const std::string& text) = 0;
    // Each CR LF inside the text starts a further line.
    virtual float textHeight(const std::string& text) = 0;

    virtual float currentX() const = 0;
    virtual float currentY() const = 0;
    virtual void setCurrentX(float x) = 0;
    virtual void setCurrentY(float y) = 0;

    // Draws the text with its top left at the pen, transparently; the pen moves right by its width.
    virtual void print(const std::string& text) = 0;
    // Prints a mark of the layout that is not part of the text (a wrap's mark): a surface whose
    // text can be copied out (a PDF) keeps it out of what a reader copies.
    virtual void printMark(const std::string& text) { print(text); }
    // Prints `shown` in the place of `actual`, bytes without a glyph (a control character): a
    // surface whose text can be copied out (a PDF) gives a reader `actual`.
    virtual void printStandingFor(const std::string& shown, const std::string& actual) {
        (void)actual;
        print(shown);
    }
    // A line in the colour and the current draw width; the pen ends at (x2, y2).
    virtual void line(float x1, float y1, float x2, float y2, std::uint32_t colour) = 0;
    // A filled box; the pen ends at (x2, y2).
    virtual void filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) = 0;

    virtual int drawWidth() const = 0;
    virtual void setDrawWidth(int pixels) = 0;
    // Clears to the background and puts the pen at (0, 0).
    virtual void cls() = 0;

    virtual float width() const = 0;
    virtual float height() const = 0;
    virtual float scaleWidth() const = 0;

    virtual int twipsPerPixelX() const = 0;
    virtual int twipsPerPixelY() const = 0;
    // The fonts of the device; the first is the font of last resort.
    virtual std::vector<std::string> fonts() const = 0;
    // How many fonts() lists. A device may count them without resolving its font of last resort,
    // which can mean loading a font that nothing is drawn with.
    virtual std::size_t fontCount() const { return fonts().size(); }
};

// The lines a text stands on for TextHeight: each CR LF starts a further one.
int measuredLines(std::string_view text);

// The hidden picture of the main window's view (picDisplay); none until the window layer or a
// test installs one. Layout reads it for nearly every token, so it is one read of the Session.
inline Surface* displaySurface() { return currentSession().ports.display; }
void setDisplaySurface(Surface* surface);

// The printer's page; none while nothing prints.
inline Surface* printerSurface() { return currentSession().ports.printerSurface; }
void setPrinterSurface(Surface* surface);

// The surface of a destination: 1 the display, 2 the printer.
inline Surface* surfaceFor(Destination destination) {
    const Ports& ports = currentSession().ports;
    return destination == kPrint ? ports.printerSurface : ports.display;
}

}  // namespace hlyd
