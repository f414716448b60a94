#include "printing/printer_fonts.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "display/font_metrics.h"
#include "platform/char_case.h"
#include "platform/printer.h"
#include "printing/print_state.h"
#include "settings/ini_handler.h"

namespace hlyd {

namespace {

constexpr int kPrinterError = 482;
constexpr const char* kPrintingDisabled = "Halyard's Printing functions are disabled.";
constexpr const char* kChooseFonts = "In order to print either select different fonts using Option/Fonts or ";

std::int32_t whole(double value) { return static_cast<std::int32_t>(std::nearbyint(value)); }
double wholePart(double value) { return std::floor(value + 0.5); }

void tell(const std::string& text, MsgIcon icon = MsgIcon::None) {
    showMessage(text, theAppInfo().Title, MsgButtons::OK, icon);
}

// One font tried on the printer. The record's font stands for the printer's font object: what the
// printer is told, the record keeps, and what the printer cannot do is taken out of the record.
class PrintFontCheck {
public:
    PrintFontCheck(Printer& printer, FontSpec& font, std::string name)
        : p_(printer),
          f_(font),
          name_(std::move(name)),
          head_("The selected printer (Windows default printer) -- \n" + printer.deviceName() +
                "\n -- does not support font \n" + name_) {}

    const std::string& head() const { return head_; }

    // Throws when the printer cannot print with the font at all.
    void run() {
        putOnPrinter();
        if (!takeName()) raiseInternal("HlydPAValidateFont");
        takeSize();
        dropStyles();
        if (!(p_.textWidth("A") > 0)) raiseInternal("HlydPAValidateFont");
    }

private:
    void putOnPrinter() {
        if (!f_.Name.empty()) p_.setFontName(f_.Name);
        if (f_.Size > 0) p_.setFontSize(f_.Size);
        p_.setFontBold(f_.Bold);
        p_.setFontItalic(f_.Italic);
        p_.setFontStrikethrough(f_.Strikethrough);
        p_.setFontUnderline(f_.Underline);
    }

    // A name the printer lacks reads back as another: then the font is not supported.
    bool takeName() {
        if (f_.Name.empty()) {
            name_ = GetDefaultPrintFont();
            f_.Size = 12;
            p_.setFontSize(f_.Size);
            theLog().LogData(" Unpopulated FontName set to " + name_);
        }
        if (name_ != f_.Name) p_.setFontName(name_);
        if (p_.fontName() != name_) return false;
        f_.Name = name_;
        return true;
    }

    void takeSize() {
        if (f_.Size == 0) {
            f_.Size = 12;
            theLog().LogData(" Unpopulated FontSize set to" + numberText(f_.Size));
        } else if (f_.Size > 100) {
            tell("Font-size specified as" + numberText(f_.Size) + ". " +
                         "Maximum allowed is 100 which is what will be used.",
                 MsgIcon::Warning);
            f_.Size = 100;
        }
        p_.setFontSize(f_.Size);
        // The printer may only have sizes near the one asked for; its own is the one printed.
        if (wholePart(p_.fontSize()) == wholePart(f_.Size)) return;
        theLog().LogData(head_ + numberText(f_.Size) + ". " + f_.Name + numberText(p_.fontSize()) + " will be used. ");
        f_.Size = p_.fontSize();
    }

    void dropStyles() {
        auto drop = [&](bool& wanted, bool printerHas, const char* what) {
            if (!wanted || printerHas) return;
            wanted = false;
            theLog().LogData(head_ + what);
        };
        drop(f_.Bold, p_.fontBold(), " Bold.  Bold is ignored.");
        drop(f_.Italic, p_.fontItalic(), " Italic.  Italic is ignored.");
        drop(f_.Strikethrough, p_.fontStrikethrough(), " Strikethru.  Strikethru is ignored.");
        drop(f_.Underline, p_.fontUnderline(), " Underline.  Underline is ignored.");
    }

    Printer& p_;
    FontSpec& f_;
    std::string name_;
    std::string head_;
};

void logFontSettings(const FontSpec& f) {
    auto yesNo = [](bool on) { return std::string(on ? "True" : "False"); };
    cLog& log = theLog();
    log.LogData(" Current settings...");
    log.LogData("  FontName=" + f.Name);
    log.LogData("  FontSize=" + numberText(f.Size));
    log.LogData("  FontBold=" + yesNo(f.Bold));
    log.LogData("  FontItalic=" + yesNo(f.Italic));
    log.LogData("  FontStrikeThru=" + yesNo(f.Strikethrough));
    log.LogData("  FontUnderline=" + yesNo(f.Underline));
}

// A printer error while measuring stops the printing; the measuring goes on, with 0 for what the
// printer could not tell.
template <class Measure>
float measured(Measure measure) {
    try {
        return measure();
    } catch (const HlydError& e) {
        if (e.Number != kPrinterError) throw;
        printState().PrintStatus = kPrintStopped;
        return 0;
    }
}

AttributeRecord& printAttributes(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

}  // namespace

std::string GetDefaultPrintFont() {
    static const char* const kCandidates[] = {"COURIER NEW", "COURIER", "ARIAL"};
    Printer* printer = currentPrinter();
    if (printState().PrinterName.empty() || !printer) return {};
    std::vector<std::string> fonts = printer->fonts();
    for (const char* candidate : kCandidates)
        for (const std::string& font : fonts)
            if (upperCase(font) == candidate) return font;
    return {};
}

void HlydPASetAttributes(AttributeRecord& element) {
    Printer* printer = currentPrinter();
    if (!printer) return;
    PrintState& state = printState();
    // The printer has one font object, which every element reuses.
    state.FontObjectSaved = false;
    try {
        setAttributesOn(*printer, element);
        if (printer->fontName() != element.Font.Name) printer->setFontName(element.Font.Name);
    } catch (const HlydError& e) {
        if (e.Number == kPrinterError) {
            state.PrintStatus = kPrintStopped;
            return;
        }
        state.PrinterValid = false;
        tell("An error was encountered in setting printer fonts for " + state.PrinterName + "\n" + kPrintingDisabled +
             "\nUse Print Options to reset fonts for this printer.");
    }
}

void HlydPAValidateFont(AttributeRecord& element, const std::string& wantedName, bool verbose, bool& success) {
    TraceScope trace(theDebug().TraceApplication, "HlydPAValidateFont");
    success = false;
    PrintState& state = printState();
    state.FontObjectSaved = true;
    Printer* printer = currentPrinter();
    if (!state.PrinterPresent || !printer) return;
    FontSpec& font = element.Font;
    const std::string& name = wantedName.empty() || wantedName == font.Name ? font.Name : wantedName;
    PrintFontCheck check(*printer, font, name);
    try {
        check.run();
        success = true;
        return;
    } catch (const HlydError&) {}
    if (verbose) {
        tell(check.head(), MsgIcon::Warning);
        logFontSettings(font);
    }
    state.PrinterValid = false;
    tell(std::string(kPrintingDisabled) + "\n" + kChooseFonts +
         "\nchoose a different printer with File/Print Setup or " + "\ninstall the desired font(s).");
}

void HlydPAValidateFonts(bool verbose) {
    TraceScope trace(theDebug().TraceApplication, "HlydPAValidateFonts");
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& element = printAttributes(e);
        bool success = false;
        HlydPAValidateFont(element, element.FontName, verbose, success);
    }
    if (printState().PrinterPresent) HlydPAGetFontMetrics();
}

void HlydPAGetFontMetrics() {
    TraceScope trace(theDebug().TraceApplication, "HlydPAGetFontMetrics");
    Printer* printer = currentPrinter();
    if (!printer) return;
    Printer& p = *printer;
    LayoutMetrics& m = layoutMetrics();
    m.MaxFontHeight[kPrint] = 0;
    double total = 0;
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& a = printAttributes(e);
        HlydPASetAttributes(a);
        if (printState().PrintStatus == kPrintStopped) return;
        float height = measured([&] { return p.textHeight("X"); });
        double meanWidth = measured([&] { return p.textWidth(std::string(100, 'X')); }) / 100.0;
        double spaceWidth = measured([&] { return p.textWidth(std::string(100, ' ')); }) / 100.0;
        a.Height = whole(height);
        a.SpaceWidth = whole(spaceWidth);
        a.XWidth = whole(meanWidth);
        if (e == kElemProjectFile || e == kElemHeadersFooters) continue;
        total += meanWidth;
        m.MaxFontHeight[kPrint] = std::max(m.MaxFontHeight[kPrint], height);
    }
    // Six widths summed, divided by seven, as on the screen.
    std::int64_t sevenths = static_cast<std::int64_t>(whole(total)) / 7;
    m.WhiteSpaceSize[kPrint] = static_cast<float>(sevenths);
    m.ConnectorSize[kPrint] = m.IndentSize[kPrint] = m.WhiteSpaceSize[kPrint];
    m.PrintTwipsPerPixelX = static_cast<std::int16_t>(p.twipsPerPixelX());
    m.PrintTwipsPerPixelY = static_cast<std::int16_t>(p.twipsPerPixelY());
    // The room kept for " _" at a line's end is measured in the font the mark is drawn in.
    HlydPASetAttributes(printAttributes(kElemKeyWords));
    m.ContinueSize[kPrint] = measured([&] { return p.textWidth(" _"); });
    HlydPASetAttributes(printAttributes(kElemLineNumbers));
    // Five digits, and two blanks: the connector lines of the outermost blocks stand in the
    // second, a blank clear of the number.
    printState().LineNumberWidth = measured([&] { return p.textWidth("88888") + 2 * p.textWidth(" "); });
}

bool HlydPACheckIfValid() {
    TraceScope trace(theDebug().TraceApplication, "HlydPACheckIfValid");
    HlydPAValidateFonts(false);
    PrintState& state = printState();
    state.PrinterValid = state.PrintStatus == kPrintOk && state.PrinterValid;
    if (!state.PrinterValid)
        tell("The Fonts currently selected are not valid for " + state.PrinterName + "\n" + kPrintingDisabled + "\n" +
             kChooseFonts + "\ninstall the desired font(s).");
    theLog().LogData(std::string("PrinterValid=") + (state.PrinterValid ? "True" : "False"));
    return state.PrinterValid;
}

}  // namespace hlyd
