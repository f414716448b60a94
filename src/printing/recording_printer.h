#pragma once
// A printer with fixed metrics that tells every call to a sink instead of putting ink on paper:
// the tools show a print run with it, and the tests check it to the twip. Its figures are part
// of the tools' output format and stay as they are:
//   US Letter, 12240 x 15840 twips, 600 pixels per inch, physical offsets of 150 pixels on both
//   axes; every character is size x 12 twips wide (bold and italic alike); a line is size x 24
//   twips high; fonts "Courier New", "Arial" and "Times New Roman"; Duplex 1.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/printer.h"

namespace hlyd {

// One call that reached the paper, a page or document boundary, or a place named or linked to.
struct PrintEvent {
    enum Kind { PageStart, Text, Line, EndDoc, KillDoc, Destination, Link } kind = Text;
    std::int32_t doc = 0;                  // from 1
    std::int32_t page = 0;                 // the physical page of the document, from 1
    float x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // the pen before a text; the ends of a line
    std::string font;
    double size = 0;
    bool bold = false, italic = false, underline = false;
    std::uint32_t colour = 0;  // as the program holds it: 0x00BBGGRR
    int width = 1;             // a line's draw width
    std::string text;          // of a destination or a link: the place's name
    std::string title;         // of a destination: its outline entry, at `level`
    int level = 0;
    std::int32_t printed = 0;  // of a page: its printed number and its kind
    int type = 0;
};

class RecordingPrinter : public Printer {
public:
    using Sink = std::function<void(const PrintEvent&)>;
    // `name` is the name it answers to; the sink hears every call as it happens.
    RecordingPrinter(std::string name, Sink sink);

    // Pages delivered (begun and not killed) and documents begun, for the end of a run.
    std::int32_t pagesDelivered() const override { return delivered_; }
    std::int32_t documents() const { return doc_; }

    std::string fontName() const override { return font_; }
    void setFontName(const std::string& name) override;
    double fontSize() const override { return size_; }
    void setFontSize(double points) override { size_ = points; }
    bool fontBold() const override { return bold_; }
    void setFontBold(bool on) override { bold_ = on; }
    bool fontItalic() const override { return italic_; }
    void setFontItalic(bool on) override { italic_ = on; }
    bool fontUnderline() const override { return underline_; }
    void setFontUnderline(bool on) override { underline_ = on; }
    bool fontStrikethrough() const override { return strike_; }
    void setFontStrikethrough(bool on) override { strike_ = on; }
    std::uint32_t foreColor() const override { return fore_; }
    void setForeColor(std::uint32_t colour) override { fore_ = colour; }

    float textWidth(const std::string& text) override;
    float textHeight(const std::string& text) override;
    float currentX() const override { return x_; }
    float currentY() const override { return y_; }
    void setCurrentX(float x) override { x_ = x; }
    void setCurrentY(float y) override { y_ = y; }
    void print(const std::string& text) override;
    void line(float x1, float y1, float x2, float y2, std::uint32_t colour) override;
    void filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) override;
    int drawWidth() const override { return drawWidth_; }
    void setDrawWidth(int pixels) override { drawWidth_ = pixels; }
    void cls() override { x_ = y_ = 0; }
    float width() const override { return 12240; }
    float height() const override { return 15840; }
    float scaleWidth() const override;
    int twipsPerPixelX() const override { return 2; }
    int twipsPerPixelY() const override { return 2; }
    std::vector<std::string> fonts() const override;

    std::string deviceName() const override { return name_; }
    PrinterCaps caps() const override;
    float scaleLeft() const override { return 0; }
    float scaleTop() const override { return 0; }
    float scaleHeight() const override;
    void newPage() override;
    void endDoc() override;
    void killDoc() override;
    std::int32_t page() const override { return !docOpen_ ? 1 : pagePending_ ? page_ + 1 : page_; }
    void setPageLabel(std::int32_t printedNumber, int kind) override { printed_ = printedNumber, type_ = kind; }
    // A destination's height is y1; a link's rectangle is (x1, y1)-(x2, y2).
    void nameDestination(const std::string& name, float y, const std::string& title, int level) override;
    void linkTo(float left, float top, float right, float bottom, const std::string& name) override;
    std::int32_t jobProperty(JobProperty which) const override;
    int setJobProperty(JobProperty which, std::int32_t value) override;

private:
    void ensurePage();        // a page begins with the first thing drawn on it
    void send(PrintEvent e);  // not "emit": the window layer's headers take that word

    std::string name_;
    Sink sink_;
    std::string font_ = "Courier New";
    double size_ = 12;
    bool bold_ = false, italic_ = false, underline_ = false, strike_ = false;
    std::uint32_t fore_ = 0;
    float x_ = 0, y_ = 0;
    int drawWidth_ = 1;
    std::int32_t doc_ = 0, page_ = 0;  // page 0: the document has no page yet
    bool docOpen_ = false;
    bool pagePending_ = false;  // a new page is due with the next output
    std::int32_t pagesInDoc_ = 0, delivered_ = 0;
    std::int32_t printed_ = 0;
    int type_ = 1;
    std::int32_t orientation_ = 1, copies_ = 1, paperSize_ = 1, quality_ = -4;
};

}  // namespace hlyd
