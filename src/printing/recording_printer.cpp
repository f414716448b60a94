#include "printing/recording_printer.h"

#include <utility>

namespace hlyd {

namespace {

constexpr const char* kFonts[] = {"Courier New", "Arial", "Times New Roman"};
constexpr float kPageWidth = 12240, kPageHeight = 15840;
constexpr std::int32_t kPixelsPerInch = 600, kOffsetPixels = 150;
constexpr float kOffsetTwips = kOffsetPixels * 1440.0f / kPixelsPerInch;

}  // namespace

RecordingPrinter::RecordingPrinter(std::string name, Sink sink) : name_(std::move(name)), sink_(std::move(sink)) {}

void RecordingPrinter::setFontName(const std::string& name) {
    for (const char* f : kFonts)
        if (name == f) font_ = name;
}

float RecordingPrinter::textWidth(const std::string& text) {
    return static_cast<float>(size_ * 12 * static_cast<double>(text.size()));
}

float RecordingPrinter::textHeight(const std::string& text) {
    return static_cast<float>(size_ * 24 * measuredLines(text));
}

float RecordingPrinter::scaleWidth() const { return kPageWidth - 2 * kOffsetTwips; }
float RecordingPrinter::scaleHeight() const { return kPageHeight - 2 * kOffsetTwips; }

std::vector<std::string> RecordingPrinter::fonts() const { return {std::begin(kFonts), std::end(kFonts)}; }

PrinterCaps RecordingPrinter::caps() const {
    return {static_cast<std::int32_t>(kPageWidth / 1440 * kPixelsPerInch),
            static_cast<std::int32_t>(kPageHeight / 1440 * kPixelsPerInch),
            kOffsetPixels,
            kOffsetPixels,
            kPixelsPerInch,
            kPixelsPerInch};
}

void RecordingPrinter::send(PrintEvent e) {
    e.doc = doc_;
    e.page = page_;
    if (sink_) sink_(e);
}

void RecordingPrinter::ensurePage() {
    if (!docOpen_) {
        docOpen_ = true;
        ++doc_;
        page_ = 0;
        pagesInDoc_ = 0;
        pagePending_ = true;
    }
    if (!pagePending_) return;
    pagePending_ = false;
    ++page_;
    ++pagesInDoc_;
    PrintEvent e;
    e.kind = PrintEvent::PageStart;
    e.printed = printed_;
    e.type = type_;
    send(e);
}

void RecordingPrinter::print(const std::string& text) {
    ensurePage();
    if (!text.empty()) {
        PrintEvent e;
        e.kind = PrintEvent::Text;
        e.x1 = x_;
        e.y1 = y_;
        e.font = font_;
        e.size = size_;
        e.bold = bold_;
        e.italic = italic_;
        e.underline = underline_;
        e.colour = fore_;
        e.text = text;
        send(std::move(e));
    }
    x_ += textWidth(text);
}

void RecordingPrinter::line(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    ensurePage();
    PrintEvent e;
    e.kind = PrintEvent::Line;
    e.x1 = x1, e.y1 = y1, e.x2 = x2, e.y2 = y2;
    e.colour = colour;
    e.width = drawWidth_;
    send(e);
    x_ = x2, y_ = y2;
}

void RecordingPrinter::nameDestination(const std::string& name, float y, const std::string& title, int level) {
    ensurePage();
    PrintEvent e;
    e.kind = PrintEvent::Destination;
    e.y1 = y;
    e.text = name;
    e.title = title;
    e.level = level;
    send(std::move(e));
}

void RecordingPrinter::linkTo(float left, float top, float right, float bottom, const std::string& name) {
    ensurePage();
    PrintEvent e;
    e.kind = PrintEvent::Link;
    e.x1 = left, e.y1 = top, e.x2 = right, e.y2 = bottom;
    e.text = name;
    send(std::move(e));
}

// A filled box is told as its four edges, so that a reader of the dump sees where it lies.
void RecordingPrinter::filledBox(float x1, float y1, float x2, float y2, std::uint32_t colour) {
    int width = drawWidth_;
    drawWidth_ = 1;
    line(x1, y1, x2, y1, colour);
    line(x2, y1, x2, y2, colour);
    line(x2, y2, x1, y2, colour);
    line(x1, y2, x1, y1, colour);
    drawWidth_ = width;
    x_ = x2, y_ = y2;
}

// The page ended is delivered; the next one begins with its first output, when its label is known.
void RecordingPrinter::newPage() {
    ensurePage();
    ++delivered_;
    --pagesInDoc_;
    pagePending_ = true;
    x_ = y_ = 0;
}

void RecordingPrinter::endDoc() {
    if (!docOpen_) return;
    delivered_ += pagesInDoc_;
    pagesInDoc_ = 0;
    PrintEvent e;
    e.kind = PrintEvent::EndDoc;
    send(e);
    docOpen_ = false;
    pagesInDoc_ = 0;
    x_ = y_ = 0;
}

void RecordingPrinter::killDoc() {
    if (!docOpen_) return;
    PrintEvent e;
    e.kind = PrintEvent::KillDoc;
    send(e);
    docOpen_ = false;
    pagesInDoc_ = 0;
    x_ = y_ = 0;
}

std::int32_t RecordingPrinter::jobProperty(JobProperty which) const {
    switch (which) {
        case JobProperty::Orientation: return orientation_;
        case JobProperty::Copies: return copies_;
        case JobProperty::Duplex: return 1;
        case JobProperty::PaperSize: return paperSize_;
        case JobProperty::PrintQuality: return quality_;
    }
    return 0;
}

// It prints on one side only, and knows one paper: asking for more is refused as a driver would.
int RecordingPrinter::setJobProperty(JobProperty which, std::int32_t value) {
    switch (which) {
        case JobProperty::Orientation:
            if (value != 1 && value != 2) return 380;
            orientation_ = value;
            break;
        case JobProperty::Copies: copies_ = value; break;
        case JobProperty::Duplex:
            if (value != 1) return 483;
            break;
        case JobProperty::PaperSize: paperSize_ = value; break;
        case JobProperty::PrintQuality: quality_ = value; break;
    }
    return 0;
}

}  // namespace hlyd
