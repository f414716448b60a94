#pragma once
// A surface with fixed metrics that records every call: each character is W twips wide and a
// line H high, unless a font says otherwise. Layout is tested against it exactly.
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "files/main_window_model.h"
#include "platform/surface.h"
#include "test_support.h"

namespace hlyd::test {

class FakeSurface : public Surface {
public:
    struct Metrics {
        float charWidth = 100;
        float lineHeight = 200;
    };
    struct Call {
        std::string op;  // "print", "line", "box", "cls", "font", "size", "x", "y", ...
        std::string text;
        float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        std::uint32_t colour = 0;
    };

    FakeSurface(float width = 12000, float height = 8000) : width_(width), height_(height) {}

    Metrics defaultMetrics;
    std::map<std::string, Metrics> metricsByFont;  // per font name
    std::set<std::string> knownFonts{"Courier New", "Arial"};
    std::set<std::string> plainOnly;  // fonts that refuse bold and italic
    std::vector<Call> calls;

    std::string fontName() const override { return font_; }
    void setFontName(const std::string& name) override {
        font_ = knownFonts.count(name) ? name : *knownFonts.begin();
        calls.push_back({"font", name});
    }
    double fontSize() const override { return size_; }
    void setFontSize(double points) override { size_ = points, calls.push_back({"size", std::to_string(points)}); }
    bool fontBold() const override { return bold_; }
    void setFontBold(bool on) override { bold_ = on && !plainOnly.count(font_); }
    bool fontItalic() const override { return italic_; }
    void setFontItalic(bool on) override { italic_ = on && !plainOnly.count(font_); }
    bool fontUnderline() const override { return underline_; }
    void setFontUnderline(bool on) override { underline_ = on; }
    bool fontStrikethrough() const override { return strike_; }
    void setFontStrikethrough(bool on) override { strike_ = on; }
    std::uint32_t foreColor() const override { return fore_; }
    void setForeColor(std::uint32_t colour) override { fore_ = colour; }

    float textWidth(const std::string& text) override { return metrics().charWidth * static_cast<float>(text.size()); }
    float textHeight(const std::string& text) override {
        return metrics().lineHeight * static_cast<float>(measuredLines(text));
    }

    float currentX() const override { return x_; }
    float currentY() const override { return y_; }
    void setCurrentX(float x) override { x_ = x, calls.push_back({"x", "", x}); }
    void setCurrentY(float y) override { y_ = y, calls.push_back({"y", "", 0, y}); }
    void print(const std::string& text) override {
        calls.push_back({"print", text, x_, y_, 0, 0, fore_});
        x_ += textWidth(text);
    }
    void printStandingFor(const std::string& shown, const std::string& actual) override {
        calls.push_back({"standin", actual, x_, y_, 0, 0, fore_});
        print(shown);
    }
    void line(float x1, float y1, float x2, float y2, std::uint32_t colour) override {
        calls.push_back({"line", "", x1, y1, x2, y2, colour});
        x_ = x2, y_ = y2;
    }
    void filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) override {
        calls.push_back({"box", "", x1, y1, x2, y2, colour});
        x_ = x2, y_ = y2;
    }
    int drawWidth() const override { return drawWidth_; }
    void setDrawWidth(int pixels) override {
        drawWidth_ = pixels, calls.push_back({"drawwidth", std::to_string(pixels)});
    }
    void cls() override { calls.push_back({"cls", ""}), x_ = y_ = 0; }
    float width() const override { return width_; }
    float height() const override { return height_; }
    float scaleWidth() const override { return width_; }
    int twipsPerPixelX() const override { return 15; }
    int twipsPerPixelY() const override { return 15; }
    std::vector<std::string> fonts() const override { return {knownFonts.begin(), knownFonts.end()}; }

    void resize(float width, float height) { width_ = width, height_ = height; }
    // The calls of one kind, in order.
    std::vector<Call> callsOf(const std::string& op) const {
        std::vector<Call> out;
        for (const Call& c : calls)
            if (c.op == op) out.push_back(c);
        return out;
    }

private:
    const Metrics& metrics() const {
        auto it = metricsByFont.find(font_);
        return it == metricsByFont.end() ? defaultMetrics : it->second;
    }
    std::string font_ = "Courier New";
    double size_ = 10;
    bool bold_ = false, italic_ = false, underline_ = false, strike_ = false;
    std::uint32_t fore_ = 0;
    float x_ = 0, y_ = 0;
    int drawWidth_ = 1;
    float width_, height_;
};

// A run of the program that draws on a fake surface of fixed metrics, fonts validated against it.
template <class S = FakeSurface>
class SurfaceTestOf : public ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        setDisplaySurface(&surface);
        HlydDAValidateFonts();
    }
    void TearDown() override {
        setDisplaySurface(nullptr);
        ProgramTest::TearDown();
    }
    S surface;
};
using SurfaceTest = SurfaceTestOf<>;

// The view 8000 twips high, and, as the window does, a file that becomes current shown from its
// first record.
class ViewTest : public SurfaceTest {
protected:
    void SetUp() override {
        SurfaceTest::SetUp();
        emitterState().ViewHeight = 8000;
        mainWindow().emitRequestedData = [] {
            std::int32_t first = 1;
            HlydDSEmitRequestedData(first);
        };
    }
};

}  // namespace hlyd::test
