#include "models/display_options_fonts.h"

#include <cmath>
#include <cstdio>

#include "base/app_info.h"
#include "base/message_box.h"
#include "platform/surface.h"

namespace hlyd {

namespace {

std::string sizeText(double points) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", std::round(points * 100) / 100);
    return text;
}

std::string styleText(const FontSpec& f) {
    std::string styles;
    auto add = [&styles](bool on, const char* word) {
        if (on) styles += (styles.empty() ? "" : " ") + std::string(word);
    };
    add(f.Bold, "Bold");
    add(f.Italic, "Italic");
    add(f.Underline, "Underline");
    add(f.Strikethrough, "Strikethrough");
    return styles;
}

void refuseFont(const std::string& text) { showMessage(text, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning); }

std::string notValidDisplayFont() { return "This font is not a valid display font"; }

void takeFont(AttributeRecord& a, const FontSpec& font) {
    a.Font = font;
    a.FontName = font.Name;
}

}  // namespace

std::string fontText(const FontSpec& font) {
    std::string text = font.Name + ", " + sizeText(font.Size) + " pt";
    std::string styles = styleText(font);
    return styles.empty() ? text : text + ", " + styles;
}

std::string fontDialogTitle(int element) { return "Set Font for: " + elementName(element); }

bool displayHasFont(const std::string& name) {
    Surface* surface = displaySurface();
    if (!surface) return true;
    std::string before = surface->fontName();
    surface->setFontName(name);
    bool has = surface->fontName() == name;
    surface->setFontName(before);
    return has;
}

bool setElementFont(DisplayOptionsModel& m, int element, const FontSpec& font) {
    if (!displayHasFont(font.Name)) {
        refuseFont(notValidDisplayFont());
        return false;
    }
    takeFont(m.elements[element], font);
    m.changed = true;
    return true;
}

void setElementColour(DisplayOptionsModel& m, int element, bool foreground, std::uint32_t colour) {
    AttributeRecord& a = m.elements[element];
    (foreground ? a.ForeColor : a.BackColor) = colour;
    m.changed = true;
}

bool changeAllFonts(DisplayOptionsModel& m, const FontSpec& font) {
    if (!displayHasFont(font.Name)) {
        refuseFont(notValidDisplayFont());
        return false;
    }
    for (int e = 1; e <= kElementCount; ++e) takeFont(m.elements[e], font);
    m.changed = true;
    return true;
}

void copyFontsFromPrintSettings(DisplayOptionsModel& m) {
    for (int e = 1; e <= kElementCount; ++e) {
        const FontSpec& printed = displayAttributes().Elements[e].slot[kPrint].Font;
        if (printed.Name.empty()) continue;
        if (!displayHasFont(printed.Name)) {
            refuseFont("Cannot copy " + elementName(e) + " font " + printed.Name + "\n" + notValidDisplayFont());
            continue;
        }
        takeFont(m.elements[e], printed);
        m.changed = true;
    }
}

}  // namespace hlyd
