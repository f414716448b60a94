// Reading the settings at start-up, in the order the file's sections were laid out, with the
// defaults, the older keys that stand in for newer ones, and the sanity rules.
#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "platform/char_case.h"
#include "platform/os.h"
#include "settings/attributes.h"
#include "settings/locale_paper.h"
#include "settings/page_settings.h"
#include "settings/settings_state.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "settings/window_place.h"

namespace hlyd {

namespace {

std::int32_t screenWidthTwips = 1920 * 15;
std::int32_t screenHeightTwips = 1080 * 15;

const char* const kHeadingDefaults[3] = {"@FileName;|;<File Date: >; @FileDate; @FileTime", "@VBName ;|; @ProcName",
                                         "<Page >; @Page ;|<Printed: >;@Date; @Time"};
const char* const kFootingCenterDefault = "<Listed by Halyard>|<Visual Basic source, as it stands>";
const char* const kDisplayFontName = "Courier New";
constexpr double kDisplayFontSize = 10;
// Paper is read closer than a screen: 10 points keep a listing as dense as a plain text print.
constexpr double kPrintFontSize = 10;
// Pure green on white is hard to read (1.4:1) and pale grey on a mono printer; this green has
// more than 4.5:1.
constexpr double kPaperGreen = 0x008000;
// The heading and footing are read once a page, the code all the time: in smaller type their four
// lines take less of the page from the code.
constexpr double kPaperHeadingSize = 8;
// A quarter inch above the heading and below the footing, half an inch at the sides (clear of the
// band a reader's thumb or a punch takes). The inch at the left and the half inches above and
// below that a listing once kept for binding left a page a fifth fewer lines than a plain text
// print of the same file; a printer that cannot print so close to the edge refuses them, and its
// own area is used.
const char* const kPaperMargins = "360 720 720 360";

constexpr const char* kLoadSource = "sbINIGetInfo";

// A value more than four times its reference is taken for a slip and replaced by it; so is one
// below nothing, which no length of the page can be (and which, taken as it stands, overflows
// the page's arithmetic).
std::int32_t sane(const std::string& key, const std::string& text, double value, std::int32_t reference) {
    if (value >= 0 && value <= 4.0 * reference) return clngOf(value, kLoadSource);
    iniHandler().logOutOfRange(key, text, std::to_string(reference));
    return reference;
}

std::int32_t readSane(const std::string& key, std::int32_t defaultValue, std::int32_t reference) {
    std::string text = iniHandler().ReadString(key, std::to_string(defaultValue));
    return sane(key, text, valOf(text), reference);
}

// Every number has the range the dialogs allow (or its field's type holds): one outside it is a
// hand-edited slip, and it is brought to the nearer end instead of ending the start with an
// overflow. The log tells where it stood.
std::int16_t readClamped(const std::string& key, double defaultValue, double lower, double upper) {
    return cintOf(iniHandler().ReadNumber(key, defaultValue, lower, upper), kLoadSource);
}

// A width below nothing makes no sense to anyone: it is taken as a slip for the default. Above the
// most the dialog allows, the most stands.
std::int16_t readNotNegative(const std::string& key, double defaultValue, double upper) {
    cINIHandler& i = iniHandler();
    std::string text = i.ReadString(key, numberText(defaultValue));
    double value = valOf(text);
    double used = value < 0 ? defaultValue : std::min(value, upper);
    if (used != value) i.logOutOfRange(key, text, numberText(used));
    return cintOf(used, kLoadSource);
}

std::int32_t readClamped32(const std::string& key, double defaultValue, double lower, double upper) {
    return clngOf(iniHandler().ReadNumber(key, defaultValue, lower, upper), kLoadSource);
}

constexpr double kMostColumns = 16;
constexpr double kMostIndent = 16;
constexpr double kMostTabWidth = 32;
constexpr double kMostOrphanLines = 10;
constexpr double kHighestFirstLineNumber = 1000;
constexpr double kLargestLineNumberStep = 100;
constexpr double kOpenDialogFilters = 6;
// A font of more points would be taller than the 16-bit twips of its height hold.
constexpr double kLargestFontSize = 1638;
// Farther than this from the origin no screen reaches; the window's place is checked against the
// screens afterwards.
constexpr double kFarthestWindowPlace = 1e9;

// The list of open files is resized by the user and kept; a size smaller than a few lines or
// larger than the screen is no choice anyone made, and the list takes its own size instead.
std::array<std::int32_t, 2> readFileListSize() {
    std::vector<std::string> words = iniHandler().ReadWords("FileList", "0 0", std::string("General"));
    std::array<std::int32_t, 2> size{};
    const std::array<double, 2> lower{3000, 1500}, upper{screenWidthTwips * 1.0, screenHeightTwips * 1.0};
    for (std::size_t k = 0; k < 2; ++k) {
        double value = k < words.size() ? valOf(words[k]) : 0;
        if (!(value >= lower[k] && value <= upper[k])) return {};
        size[k] = static_cast<std::int32_t>(value);
    }
    return size;
}

void readGeneralHead(HlydSettings& s) {
    cINIHandler& i = iniHandler();
    i.setSection("General");
    s.DebugMenu = i.ReadBool("DebugMenu", false);
    double windowState = i.ReadNumber("WindowState", 0);
    s.WindowState = windowState >= 0 && windowState <= 2 ? cintOf(windowState, kLoadSource) : std::int16_t{0};
    s.CDLGFileIndex = readClamped("CDLGFileIndex", 1, 1, kOpenDialogFilters);
    s.DoNotShowPrintDialog = i.ReadBool("DoNotShowPrintDialog", false);
    s.ShowOpenDialog = i.ReadBool("ShowOpenDialog", true);
}

void readDebug(HlydSettings& s) {
    cINIHandler& i = iniHandler();
    cDebug& d = theDebug();
    i.setSection("Debug");
    d.DontTrapErrors = i.ReadBool("DontTrapErrors", false);
    d.DontFixDataErrors = i.ReadBool("DontFixDataErrors", false);
    s.LogFile = i.ReadString("LogFile", (std::filesystem::path(settingsDirectory()) / "DB_HY.LOG").string());
    s.LoggingIsOn = i.ReadBool("LoggingIsOn", false);
    d.TraceEvents = i.ReadBool("TraceEvents", false);
    d.TraceApplication = i.ReadBool("TraceApplication", false);
    d.TracePackages = i.ReadBool("TracePackages", false);
    d.TraceClasses = i.ReadBool("TraceClasses", false);
    d.TraceMouseMove = i.ReadBool("TraceMouseMove", false);
}

void readPrinterAndColumns(HlydSettings& s) {
    cINIHandler& i = iniHandler();
    s.DefaultFileLoc = i.ReadString("DefaultFileLoc", "", "General");
    s.LastFileLoc = i.ReadString("LastFileLoc", "", "General");
    s.LastHTMLLoc = i.ReadString("LastHTMLLoc", "", "General");
    s.LastPDFLoc = i.ReadString("LastPDFLoc", "", "General");
    // The system's default printer is asked for only when the file names none: the print service
    // may take longer to answer than the rest of a run.
    const std::string noPrinterKey = "\n";  // no value read from a line can hold a line end
    s.CurrentPrinter = i.ReadString("CurrentPrinter", noPrinterKey, "General");
    if (s.CurrentPrinter == noPrinterKey) s.CurrentPrinter = systemDefaultPrinter();
    ColumnSpec& c = pageSettings().Columns;
    i.setSection(printerSection());
    c.Columns = readClamped("Columns", 1, 1, kMostColumns);
    c.Separator = i.ReadBool("ColumnSeparator", true);
    c.Gutter = readSane("ColumnSpacing", 720, 720);
    c.Width = readSane("ColumnWidth", 0, 12240);
}

// A list of extensions: the new key, else the older one, else the default; the older form
// separated its extensions by blanks.
std::string extensionList(const std::string& newKey, const std::string& oldKey, const std::string& fallback) {
    cINIHandler& i = iniHandler();
    std::string value = i.ReadString(newKey, "", "Files");
    if (value.empty()) value = i.ReadString(oldKey, fallback, "Files");
    if (value.empty()) value = fallback;
    if (value.find('|') == std::string::npos)
        for (char& c : value)
            if (c == ' ') c = '|';
    return value;
}

void readDialectAndFiles(HlydSettings& s) {
    cINIHandler& i = iniHandler();
    s.Dialect = i.ReadString("Dialect", "6", "Dialect");
    s.DetectDialect = upperCase(i.ReadString("Detect", "Auto", "Dialect")) == "AUTO";
    s.BasicExt = extensionList("BasicExtNew", "BasicExt", "BAS|CLS");
    s.FormExt = extensionList("FormExtNew", "FormExt", "FRM|CTL|PAG|DOB|DSR");
    s.ProjectExt = extensionList("ProjectExtNew", "ProjectExt", "VBP|MAK|VBG");
    s.ResourceExt.clear();
}

void readFormat(Destination dest) {
    cINIHandler& i = iniHandler();
    FormatRecord& f = displayAttributes().Format[dest];
    std::string d = std::string(".") + destinationName(dest);
    i.setSection("Format");
    f.SkipAttributes = i.ReadBool("SkipAttributes" + d, false);
    f.ConnectControls = i.ReadBool("ConnectControls" + d, true);
    f.ContinueGenerate = i.ReadBool("ContinueGenerate" + d, true);
    f.ContinueHonor = i.ReadBool("ContinueHonor" + d, true);
    f.Separator = i.ReadBool("Separator" + d, true);
    f.SeparatorBold = i.ReadBool("SeparatorBold" + d, true);
    std::string skip = i.ReadString("ProcSkip" + d, "");
    if (skip.empty()) skip = i.ReadBool("NewPage" + d, false) ? "P" : "N";
    f.ProcSkip = static_cast<unsigned char>(skip[0]);
    f.IndentAmount = readNotNegative("IndentAmount" + d, 4, kMostIndent);
    f.TabWidth = readNotNegative("TabWidth" + d, 4, kMostTabWidth);
    f.Indent = i.ReadBool("Indent" + d, true);
    f.Orphan = readClamped("Orphan" + d, 1, 1, kMostOrphanLines);
}

void readHistoryNumberingHeadings(HlydSettings& s, bool firstRun) {
    cINIHandler& i = iniHandler();
    i.setSection("General");
    s.SaveHYInfo = i.ReadBool("SaveHYInfo", false);
    s.SaveHYFile = i.ReadString("SaveHYFile", (std::filesystem::path(settingsDirectory()) / "TMRHIST.TMR").string());
    s.LineNumbers = i.ReadBool("LineNumbers", false);
    s.LineNumberHow = readClamped("LineNumberHow", 2, 1, 3);
    s.LineNumberStart = readClamped32("LineNumberStart", 1, 1, kHighestFirstLineNumber);
    s.LineNumberIncrement = readClamped32("LineNumberIncrement", 1, 1, kLargestLineNumberStep);
    s.PageNumberAsk = i.ReadBool("PageNumberAsk", false);
    s.PageNumberHow = readClamped("PageNumberHow", 1, 1, 2);
    // Defaults only on a first run: a heading the user cleared stays cleared.
    auto heading = [&](const char* key, const char* firstRunDefault) {
        return i.ReadString(key, firstRun ? firstRunDefault : "");
    };
    s.HeadingLeft = heading("HeadingLeft", kHeadingDefaults[0]);
    s.HeadingCenter = heading("HeadingCenter", kHeadingDefaults[1]);
    s.HeadingRight = heading("HeadingRight", kHeadingDefaults[2]);
    s.FootingLeft = heading("FootingLeft", "@User");
    s.FootingCenter = heading("FootingCenter", kFootingCenterDefault);
    s.FootingRight = heading("FootingRight", "@Company");
    s.FileDate = i.ReadBool("FileDate", true);
    s.FileName = i.ReadBool("FileName", true);
    s.FullFileName = i.ReadBool("FullFileName", true);
    s.PrintDate = i.ReadBool("PrintDate", true);
    s.OptionalHeading = i.ReadString("OptionalHeading", "");
    s.ProcName = i.ReadBool("ProcName", true);
    std::string screenDefault = std::to_string(screenWidthTwips / 10) + " " + std::to_string(screenHeightTwips / 6) +
                                " " + std::to_string(screenWidthTwips * 4 / 5) + " " +
                                std::to_string(screenHeightTwips * 2 / 3);
    std::vector<std::string> screen = i.ReadWords("Screen", screenDefault, std::string("General"));
    std::vector<std::string> fallback = splitOn(screenDefault, ' ');
    bool inReach = true;
    for (int k = 0; k < 4; ++k) {
        double value = valOf(k < static_cast<int>(screen.size()) ? screen[k] : fallback[k]);
        inReach = inReach && std::fabs(value) <= kFarthestWindowPlace;
        s.Screen[k] = inReach ? clngOf(value, kLoadSource) : 0;
    }
    // A place off every screen (a monitor since unplugged) or too small to work in would give a
    // window the user cannot find or use: it starts at the default place instead.
    if (!inReach || !usableWindowPlace(s.Screen, screenAreasTwips()))
        for (int k = 0; k < 4; ++k) s.Screen[k] = clngOf(valOf(fallback[k]), kLoadSource);
    s.FileList = readFileListSize();
    s.ToolBar = i.ReadBool("ToolBar", true);
    s.ToolTips = i.ReadBool("ToolTips", true);
    s.StatusBar = i.ReadBool("StatusBar", true);
}

// Colours are kept as unsigned numbers: system colours stand above 2^31 and may be stored so.
std::uint32_t colourOf(double value) {
    double rounded = std::nearbyint(value);
    if (!(rounded >= -2147483648.0 && rounded <= 4294967295.0)) raiseRuntime(6, kLoadSource);
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(rounded));
}

// A colour no 32 bits hold is a slip: the element's default colour stands instead.
std::uint32_t readColour(const std::string& key, double defaultValue) {
    double value = iniHandler().ReadNumber(key, defaultValue);
    double rounded = std::nearbyint(value);
    if (rounded >= -2147483648.0 && rounded <= 4294967295.0) return colourOf(value);
    iniHandler().logOutOfRange(key, numberText(value), numberText(defaultValue));
    return colourOf(defaultValue);
}

// 0 is a size not yet set, which the printer's setup fills in; a size below a point draws
// nothing readable and one above the largest does not fit the height's field.
double fontSizeOf(const std::string& key, const std::string& text, double defaultValue) {
    double size = valOf(text);
    double used = size < 0 ? defaultValue : size == 0 ? 0 : std::clamp(size, 1.0, kLargestFontSize);
    if (used != size) iniHandler().logOutOfRange(key, text, numberText(used));
    return used;
}

bool fontAttrFlag(const std::string& word) { return upperCase(word) == "YES" || word == "-1"; }

void readElements(Destination dest, const std::string& section, const std::string& defaultFont, double defaultSize) {
    cINIHandler& i = iniHandler();
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& a = displayAttributes().Elements[e].slot[dest];
        const std::string& name = elementName(e);
        bool green = e == kElemComments || e == kElemLineNumbers;
        bool bold = e == kElemKeyWords || e == kElemProcedures || e == kElemHeadersFooters;
        double background = dest == kDisplay ? kSystemWindowBackground : kWhite;
        double foreground = green ? (dest == kPrint ? kPaperGreen : 65280) : (e == kElemKeyWords ? 16711680 : 0);
        i.setSection(section);
        a.BackColor = readColour("Color.Background." + name, background);
        const std::uint32_t storedBack = a.BackColor;
        if (dest == kDisplay && a.BackColor == kWhite) a.BackColor = kSystemWindowBackground;
        a.ForeColor = readColour("Color.Foreground." + name, foreground);
        // Text in the colour of its own background cannot be seen: it is drawn in the element's
        // default colour, and on the default background when that colour is the same.
        if (a.ForeColor == a.BackColor || a.ForeColor == storedBack) a.ForeColor = colourOf(foreground);
        if (a.ForeColor == a.BackColor) a.BackColor = colourOf(background);
        a.FontName = i.ReadString("FontName." + name, defaultFont);
        double elementSize = dest == kPrint && e == kElemHeadersFooters ? kPaperHeadingSize : defaultSize;
        std::string defaults =
                std::string(bold ? "Yes" : "No") + (green ? " Yes" : " No") + " No No " + numberText(elementSize);
        std::vector<std::string> words = i.ReadWords("FontAttr." + name, defaults, section);
        std::vector<std::string> fallback = splitOn(defaults, ' ');
        auto word = [&](int k) { return k < static_cast<int>(words.size()) ? words[k] : fallback[k]; };
        a.Font.Name = a.FontName;
        a.Font.Bold = fontAttrFlag(word(0));
        a.Font.Italic = fontAttrFlag(word(1));
        a.Font.Underline = fontAttrFlag(word(2));
        a.Font.Strikethrough = fontAttrFlag(word(3));
        a.Font.Size = fontSizeOf("FontAttr." + name, word(4), elementSize);
    }
}

void readMargins() {
    // The sizes a slip is judged against stay those of a bound listing, so that wide margins a user
    // chose are kept.
    static const std::int32_t kReference[4] = {720, 1440, 720, 720};
    const std::vector<std::string> defaults = splitOn(kPaperMargins, ' ');
    std::vector<std::string> words = iniHandler().ReadWords("Margins", kPaperMargins, printerSection());
    std::int32_t value[4];
    for (std::size_t k = 0; k < 4; ++k) {
        const std::string& text = k < words.size() ? words[k] : defaults[k];
        value[k] = sane("Margins", text, GetNumberFromString(text), kReference[k]);
    }
    MarginRecord& m = pageSettings().Margins;
    m.Bottom = value[0];
    m.Left = value[1];
    m.Right = value[2];
    m.Top = value[3];
}

void readContentsViewAndPrintState(HlydSettings& s) {
    cINIHandler& i = iniHandler();
    i.setSection("General");
    s.TableOfContents = i.ReadBool("TableOfContents", false);
    s.CrossReference = i.ReadBool("CrossReference", false);
    s.PrintContinuous = i.ReadBool("PrintContinuous", false);
    s.ProcContentsPrint = i.ReadBool("ProcContents", false);
    s.ProcContentsDisplay = i.ReadBool("ProcContents", false, std::string("Display"));
    for (Destination dest : kDestinations) {
        s.ViewCode[dest] = i.ReadBool(std::string("Code.") + destinationName(dest), true, std::string("View"));
        s.ViewFormDef[dest] = i.ReadBool(std::string("FormDef.") + destinationName(dest), true, std::string("View"));
    }
    i.setSection("General");
    s.Orientation = readClamped("Orientation", 1, 1, 2);
    s.Duplex = readClamped("Duplex", 1, 1, 3);
    s.Copies = readClamped("Copies", 1, 1, 10);
    // Letter for everyone would give most of the world pages that do not fit their paper.
    s.PaperSize = readClamped("PaperSize", paperForLocale(os::userLocale().paperLocale), 1, 265);
    // The printer's qualities run from -4 (high) to -1 (draft); a positive one is dots per inch.
    s.PrintQuality = readClamped("PrintQuality", -4, -4, 32767);
    s.VBLevel = i.ReadString("VBLevel", "", "Special");
}

}  // namespace

HlydSettings& hlydSettings() { return settingsState().settings; }

cINIHandler& iniHandler() {
    if (!settingsState().ini) sbInitINI();
    return *settingsState().ini;
}

void resetSettings() {
    SettingsState& state = settingsState();
    state.settings = HlydSettings{};
    state.ini.reset();
    state.attributes = namedDisplayAttributes();
    state.page = PageSettings{};
}

std::string printerSection() { return hlydSettings().CurrentPrinter + ".Print"; }

void setScreenSizeTwips(std::int32_t width, std::int32_t height) {
    screenWidthTwips = width;
    screenHeightTwips = height;
    setScreenAreasTwips({{0, 0, width, height}});
}

void sbInitINI() {
    std::unique_ptr<cINIHandler>& ini = settingsState().ini;
    if (!ini) ini = std::make_unique<cINIHandler>();
    ini->setINIFileName(kSettingsFileName);
}

void sbGetINIUser() {
    sbInitINI();
    HlydSettings& s = hlydSettings();
    s.UserName = iniHandler().ReadString("User Name", "", "General");
    s.UserCompany = iniHandler().ReadString("User Company", "", "General");
    if (s.UserName.empty()) s.UserName = UserCoDef("DefName");
    if (s.UserCompany.empty()) s.UserCompany = UserCoDef("DefCompany");
    theAppInfo().UserName = s.UserName;
    theAppInfo().UserCompany = s.UserCompany;
    // A company that keeps its own help desk points the reports there.
    std::string support = iniHandler().ReadString("SupportAddress", "", "General");
    theAppInfo().SupportEndpoint = support.empty() ? kDefaultSupportEndpoint : support;
}

void sbINIGetInfo(bool firstRun) {
    TraceScope trace(theDebug().TraceApplication, "sbINIGetInfo");
    HlydSettings& s = hlydSettings();
    readGeneralHead(s);
    readDebug(s);
    readPrinterAndColumns(s);
    readDialectAndFiles(s);
    readFormat(kDisplay);
    readFormat(kPrint);
    readHistoryNumberingHeadings(s, firstRun);
    readElements(kDisplay, "Display", kDisplayFontName, kDisplayFontSize);
    readElements(kPrint, printerSection(), kDisplayFontName, kPrintFontSize);
    readMargins();
    readContentsViewAndPrintState(s);
}

}  // namespace hlyd
