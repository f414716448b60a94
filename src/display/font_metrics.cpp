#include "display/display_state.h"
#include "display/font_metrics.h"

#include <cmath>
#include <string>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "settings/ini_handler.h"

namespace hlyd {

namespace {

LayoutMetrics& metrics() { return displayState().metrics; }

long rounded(double value) { return static_cast<long>(std::nearbyint(value)); }

// A font the surface refuses is mended by the stage it failed in: a bad name takes the
// surface's font of last resort, a bad size the surface's current size.
class FontTrial {
public:
    FontTrial(Surface& surface, AttributeRecord& record) : s_(surface), r_(record) {}

    void name() {
        FontSpec& f = r_.Font;
        if (f.Name.empty()) return;
        const std::string& wanted = r_.FontName != f.Name ? r_.FontName : f.Name;
        s_.setFontName(wanted);
        if (wanted != s_.fontName()) {
            std::vector<std::string> fonts = s_.fonts();
            std::string lastResort = fonts.empty() ? s_.fontName() : fonts.front();
            f.Name = r_.FontName = lastResort;
        }
    }
    void size() {
        FontSpec& f = r_.Font;
        if (f.Size == 0) return;
        if (f.Size > 100 || f.Size < 4) f.Size = s_.fontSize();
        else s_.setFontSize(f.Size);
    }
    // A style the font cannot have is quietly dropped.
    void styles() {
        FontSpec& f = r_.Font;
        if (f.Bold) s_.setFontBold(true), f.Bold = s_.fontBold();
        if (f.Italic) s_.setFontItalic(true), f.Italic = s_.fontItalic();
        if (f.Strikethrough) s_.setFontStrikethrough(true), f.Strikethrough = s_.fontStrikethrough();
        if (f.Underline) s_.setFontUnderline(true), f.Underline = s_.fontUnderline();
    }

private:
    Surface& s_;
    AttributeRecord& r_;
};

void traceMetrics() {
    const LayoutMetrics& m = metrics();
    theLog().LogData("ConnectorSize=" + numberText(m.ConnectorSize[kDisplay]) + "\r\n ContinueSize=" +
                     numberText(m.ContinueSize[kDisplay]) + "\r\n IndentSize=" + numberText(m.IndentSize[kDisplay]) +
                     "\r\n MaxFontHeight=" + numberText(m.MaxFontHeight[kDisplay]) + "\r\n WhiteSpaceSize=" +
                     numberText(m.WhiteSpaceSize[kDisplay]) + "\r\n TwipsPerPixelX=" + numberText(m.TwipsPerPixelX) +
                     "\r\n TwipsPerPixelY=" + numberText(m.TwipsPerPixelY));
}

}  // namespace

LayoutMetrics& layoutMetrics() { return metrics(); }

void setAttributesOn(Surface& s, AttributeRecord& a) {
    FontSpec& f = a.Font;
    if (f.Name.empty()) f.Name = s.fontName();
    if (f.Size == 0) f.Size = 8;
    s.setTextStyle({f.Name, f.Size, f.Bold, f.Italic, f.Underline, f.Strikethrough, a.ForeColor});
}

void HlydDASetAttributes(AttributeRecord& attributes, bool) {
    if (Surface* s = displaySurface()) setAttributesOn(*s, attributes);
}

void HlydDAGetFontMetricss() {
    Surface* surface = displaySurface();
    if (!surface) return;
    Surface& s = *surface;
    double total = 0;
    metrics().MaxFontHeight[kDisplay] = 0;
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& a = displayAttributes().Elements[e].slot[kDisplay];
        HlydDASetAttributes(a, true);
        double meanHeight = s.textHeight("X\r\nX\r\nX\r\nX\r\nX") / 5.0;
        double meanWidth = s.textWidth(std::string(100, 'X')) / 100.0;
        a.Height = static_cast<std::int32_t>(rounded(meanHeight));
        a.SpaceWidth = static_cast<std::int32_t>(rounded(s.textWidth(std::string(100, ' ')) / 100.0));
        a.XWidth = static_cast<std::int32_t>(rounded(meanWidth));
        if (e == kElemProjectFile || e == kElemHeadersFooters) continue;
        total += meanWidth;
        if (meanHeight > metrics().MaxFontHeight[kDisplay])
            metrics().MaxFontHeight[kDisplay] = static_cast<float>(meanHeight);
    }
    // Six widths summed, divided by seven: the mean stays six sevenths of the true one.
    std::int64_t sevenths = static_cast<std::int64_t>(rounded(total)) / 7;
    metrics().WhiteSpaceSize[kDisplay] = static_cast<float>(sevenths);
    metrics().ConnectorSize[kDisplay] = metrics().IndentSize[kDisplay] = metrics().WhiteSpaceSize[kDisplay];
    metrics().TwipsPerPixelX = static_cast<std::int16_t>(s.twipsPerPixelX());
    metrics().TwipsPerPixelY = static_cast<std::int16_t>(s.twipsPerPixelY());
    metrics().ContinueSize[kDisplay] = s.textWidth(" _");
    if (theDebug().TraceApplication) traceMetrics();
}

void HlydDAValidateFont(AttributeRecord& attributes) {
    Surface* surface = displaySurface();
    if (!surface) return;
    FontTrial trial(*surface, attributes);
    trial.name();
    trial.size();
    trial.styles();
}

void HlydDAValidateFonts() {
    for (int e = 1; e <= kElementCount; ++e) HlydDAValidateFont(displayAttributes().Elements[e].slot[kDisplay]);
    HlydDAGetFontMetricss();
}

}  // namespace hlyd
