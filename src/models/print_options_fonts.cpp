#include "models/print_options_fonts.h"

#include <cmath>

#include "platform/char_case.h"
#include "platform/printer.h"
#include "printing/print_state.h"
#include "settings/ini_handler.h"

namespace hlyd {

namespace {

constexpr const char* kFallbackFont = "Courier";
constexpr double kLargestSize = 100;

AttributeRecord& printSlot(int element) { return displayAttributes().Elements[element].slot[kPrint]; }

double wholePart(double value) { return std::floor(value + 0.5); }

// The printer's font as it was, put back after a row has been tried on it.
class KeptPrinterFont {
public:
    explicit KeptPrinterFont(Printer& p)
        : p_(p),
          name_(p.fontName()),
          size_(p.fontSize()),
          bold_(p.fontBold()),
          italic_(p.fontItalic()),
          underline_(p.fontUnderline()),
          strike_(p.fontStrikethrough()) {}
    ~KeptPrinterFont() {
        p_.setFontName(name_);
        p_.setFontSize(size_);
        p_.setFontBold(bold_);
        p_.setFontItalic(italic_);
        p_.setFontUnderline(underline_);
        p_.setFontStrikethrough(strike_);
    }
    KeptPrinterFont(const KeptPrinterFont&) = delete;
    KeptPrinterFont& operator=(const KeptPrinterFont&) = delete;

private:
    Printer& p_;
    std::string name_;
    double size_;
    bool bold_, italic_, underline_, strike_;
};

void checkStyles(Printer& p, PrintFontRow& row, const std::string& head, std::string& message) {
    auto check = [&](bool& wanted, bool printerHas, const char* what) {
        if (!wanted || printerHas) return;
        wanted = false;
        message += head + what;
    };
    p.setFontBold(row.Bold);
    check(row.Bold, p.fontBold(), " Bold invalid.");
    p.setFontItalic(row.Italic);
    check(row.Italic, p.fontItalic(), "  Italic invalid.");
    p.setFontStrikethrough(row.Strikethrough);
    check(row.Strikethrough, p.fontStrikethrough(), "  Strikethru invalid.");
    p.setFontUnderline(row.Underline);
    check(row.Underline, p.fontUnderline(), " Underline invalid.");
}

}  // namespace

void loadPrintFontRows(PrintOptionsModel& m) {
    for (int e = 1; e <= kElementCount; ++e) {
        const AttributeRecord& a = printSlot(e);
        PrintFontRow& row = m.v.fonts[e];
        row.Name = a.Font.Name.empty() ? a.FontName : a.Font.Name;
        row.Size = a.Font.Size;
        row.Bold = a.Font.Bold;
        row.Italic = a.Font.Italic;
        row.Underline = a.Font.Underline;
        row.Strikethrough = a.Font.Strikethrough;
        row.ForeColor = a.ForeColor;
        row.BackColor = a.BackColor;
    }
}

void storePrintFontRows(const PrintOptionsModel& m) {
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& a = printSlot(e);
        const PrintFontRow& row = m.v.fonts[e];
        a.FontName = a.Font.Name = row.Name;
        a.Font.Size = row.Size;
        a.Font.Bold = row.Bold;
        a.Font.Italic = row.Italic;
        a.Font.Underline = row.Underline;
        a.Font.Strikethrough = row.Strikethrough;
        a.ForeColor = row.ForeColor;
        a.BackColor = row.BackColor;
    }
}

bool fValidateFont(PrintFontRow& row, std::string& message) {
    message.clear();
    Printer* p = printState().PrinterPresent ? currentPrinter() : nullptr;
    if (!p) return true;
    KeptPrinterFont kept(*p);
    if (row.Name.empty()) row.Name = kFallbackFont;
    std::string head = "The selected printer (Windows default printer) -- " + p->deviceName() + " -- does not support ";
    p->setFontName(row.Name);
    if (upperCase(p->fontName()) != upperCase(row.Name)) {
        message = head + row.Name;
        return false;
    }
    if (row.Size > kLargestSize) {
        message = "Font-size specified as" + numberText(row.Size) + ". " +
                  "Maximum allowed is 100 which is what will be used.";
        row.Size = kLargestSize;
    }
    p->setFontSize(row.Size);
    if (wholePart(p->fontSize()) != wholePart(row.Size)) {
        message += head + row.Name + " Size invalid " + numberText(row.Size);
        row.Size = p->fontSize();
    }
    checkStyles(*p, row, head + row.Name, message);
    return message.empty();
}

bool validatePrintFonts(PrintOptionsModel& m) {
    for (int e = 1; e <= kElementCount; ++e) {
        std::string message;
        if (fValidateFont(m.v.fonts[e], message)) continue;
        m.lblMessage = elementName(e) + ": " + message;
        m.focus = "cboFont" + std::to_string(e);
        return false;
    }
    return true;
}

}  // namespace hlyd
