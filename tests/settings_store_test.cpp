// The settings store: first run against later run, a file of another version brought up to
// date, the older keys and the sanity rules on reading, and save routines that each write
// exactly their own keys.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <random>
#include <set>
#include <sstream>

#include "base/app_info.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/profile_file.h"
#include "settings/settings_store.h"
#include "files/mru.h"
#include "settings/window_place.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

const char* const kHeadingLeftDefault = "@FileName;|;<File Date: >; @FileDate; @FileTime";

class SettingsStoreTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        base = dir;
        useConfigDir((base / "config").string());
    }
    fs::path iniPath() const { return fs::path(settingsDirectory()) / kSettingsFileName; }
    void writeIni(const std::string& text) {
        fs::create_directories(settingsDirectory());
        std::ofstream(iniPath(), std::ios::binary) << text;
        clearProfileCache();
    }
    std::string iniText() const { return test::settingsFileText(); }
    // The settings as a fresh run reads them from this file, without the start-up save.
    void loadFrom(const std::string& text) {
        resetSettings();
        writeIni(text);
        sbInitINI();
        sbINIGetInfo(false);
    }
    // "Section/Key" of every key line of the file.
    std::set<std::string> keysInFile() const {
        std::set<std::string> keys;
        std::istringstream in(iniText());
        std::string line, section;
        while (std::getline(in, line)) {
            if (!line.empty() && line[0] == '[') section = line.substr(1, line.find(']') - 1);
            else if (line.find('=') != std::string::npos) keys.insert(section + "/" + line.substr(0, line.find('=')));
        }
        return keys;
    }
    AttributeRecord& element(Destination dest, int e) { return displayAttributes().Elements[e].slot[dest]; }

    fs::path base;
};

TEST_F(SettingsStoreTest, FirstRunWritesTheWholeFile) {
    loadSettingsAtStartup();
    const HlydSettings& s = hlydSettings();
    EXPECT_TRUE(s.FirstRun);
    EXPECT_EQ(s.HeadingLeft, kHeadingLeftDefault);
    EXPECT_EQ(s.HeadingCenter, "@VBName ;|; @ProcName");
    EXPECT_EQ(s.FootingLeft, "@User");
    EXPECT_EQ(s.FootingRight, "@Company");
    EXPECT_TRUE(ui.shown.empty());
    ASSERT_TRUE(fs::exists(iniPath()));
    std::set<std::string> keys = keysInFile();
    for (const char* key : {"General/HeadingLeft", "General/CDLGFileIndex", "Debug/LoggingIsOn", "Files/BasicExtNew",
                            "PDF.Print/Margins", "Display/FontAttr.KeyWords", "Format/Orphan.Print"})
        EXPECT_TRUE(keys.count(key)) << key;
    clearProfileCache();
    EXPECT_EQ(iniHandler().ReadString("Version", "", "General"), theAppInfo().Version);
}

TEST_F(SettingsStoreTest, LaterRunKeepsClearedHeadingsAndFile) {
    const std::string text = "[General]\nVersion=" + theAppInfo().Version + "\nWindowState=3\n";
    writeIni(text);
    loadSettingsAtStartup();
    const HlydSettings& s = hlydSettings();
    EXPECT_FALSE(s.FirstRun);
    EXPECT_EQ(s.HeadingLeft, "");
    EXPECT_EQ(s.HeadingRight, "");
    EXPECT_EQ(s.FootingCenter, "");
    EXPECT_EQ(s.WindowState, 0);
    EXPECT_EQ(iniText(), text);
}

// Only the name of the paper's locale is read, so the locale need not be installed.
TEST_F(SettingsStoreTest, PaperFollowsTheLocaleUnlessTheSettingsNameOne) {
    std::string lcAll = std::getenv("LC_ALL") ? std::getenv("LC_ALL") : "";
    ::unsetenv("LC_ALL");
    ::setenv("LC_PAPER", "de_DE.UTF-8", 1);
    loadFrom("[General]\nOrientation=1\n");
    EXPECT_EQ(hlydSettings().PaperSize, 9);
    loadFrom("[General]\nPaperSize=1\n");
    EXPECT_EQ(hlydSettings().PaperSize, 1);
    ::unsetenv("LC_PAPER");
    if (!lcAll.empty()) ::setenv("LC_ALL", lcAll.c_str(), 1);
}

TEST_F(SettingsStoreTest, OtherVersionIsBroughtUpToDate) {
    writeIni("; kept comment\n[General]\nVersion=0.0.1\nHeadingLeft=mine\n\n[Files]\nBasicExt=BAS CLS\n");
    loadSettingsAtStartup();
    const HlydSettings& s = hlydSettings();
    EXPECT_FALSE(s.FirstRun);
    EXPECT_EQ(s.BasicExt, "BAS|CLS");
    EXPECT_EQ(s.FormExt, "FRM|CTL|PAG|DOB|DSR");
    EXPECT_EQ(s.HeadingLeft, "mine");
    EXPECT_EQ(s.Version, theAppInfo().Version);
    clearProfileCache();
    cINIHandler& ini = iniHandler();
    EXPECT_EQ(ini.ReadString("Version", "", "General"), theAppInfo().Version);
    EXPECT_EQ(ini.ReadString("BasicExtNew", "", "Files"), "BAS|CLS");
    EXPECT_EQ(ini.ReadString("HeadingLeft", "", "General"), "mine");
    EXPECT_EQ(ini.ReadString("HeadingCenter", "<none>", "General"), "");
    std::set<std::string> keys = keysInFile();
    EXPECT_TRUE(keys.count("PDF.Print/ColumnWidth"));
    EXPECT_TRUE(keys.count("General/Copies"));
    EXPECT_EQ(iniText().rfind("; kept comment\n", 0), 0u);
}

TEST_F(SettingsStoreTest, OutOfRangeNumbersAndSanityRules) {
    const std::string head = "[General]\nCurrentPrinter=P1\n";
    loadFrom(head +
             "WindowState=3\nCopies=50\n[P1.Print]\nColumnWidth=48961\nColumnSpacing=3000\n"
             "Margins=99999 1440 720 720\n");
    EXPECT_EQ(printerSection(), "P1.Print");
    EXPECT_EQ(hlydSettings().WindowState, 0);
    EXPECT_EQ(hlydSettings().Copies, 10);
    EXPECT_EQ(pageSettings().Columns.Width, 12240);
    EXPECT_EQ(pageSettings().Columns.Gutter, 720);
    EXPECT_EQ(pageSettings().Margins.Bottom, 720);
    EXPECT_EQ(pageSettings().Margins.Left, 1440);

    loadFrom(head +
             "WindowState=2\nCopies=0\n[P1.Print]\nColumnWidth=48960\nColumnSpacing=2880\n"
             "Margins=1000 5761 2880 abc\n");
    EXPECT_EQ(hlydSettings().WindowState, 2);
    EXPECT_EQ(hlydSettings().Copies, 1);
    EXPECT_EQ(pageSettings().Columns.Width, 48960);
    EXPECT_EQ(pageSettings().Columns.Gutter, 2880);
    EXPECT_EQ(pageSettings().Margins.Bottom, 1000);
    EXPECT_EQ(pageSettings().Margins.Left, 1440);
    EXPECT_EQ(pageSettings().Margins.Right, 2880);
    EXPECT_EQ(pageSettings().Margins.Top, 0);
}

// A number typed into the file that no dialog would accept is brought into its key's range (a
// length of the page to its reference) instead of ending the start with an overflow or the print
// with a wrong one; the log names the key, its section and the file.
struct OutOfRange {
    const char* lines;
    std::function<double()> value;
    double expected;
};

void PrintTo(const OutOfRange& c, std::ostream* os) { *os << c.lines; }

// The key of the case's last line.
std::string keyOf(const OutOfRange& c) {
    std::string line = c.lines;
    line = line.substr(line.find('\n') == std::string::npos ? 0 : line.find('\n') + 1);
    return line.substr(0, line.find('='));
}

class SettingsRangeTest : public SettingsStoreTest, public ::testing::WithParamInterface<OutOfRange> {};

TEST_P(SettingsRangeTest, IsBroughtIntoRangeAndLogged) {
    const std::string log = (base / "range.log").string();
    theLog().LogOpen(log, 1);
    loadFrom(std::string("[General]\nCurrentPrinter=P1\n") + GetParam().lines + "\n");
    EXPECT_EQ(GetParam().value(), GetParam().expected) << GetParam().lines;
    theLog().LogClose();
    std::ifstream in(log, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), {});
    EXPECT_NE(text.find("Setting out of range: " + keyOf(GetParam()) + "="), std::string::npos) << text;
    EXPECT_NE(text.find(iniPath().string()), std::string::npos) << text;
}

HlydSettings& settings() { return hlydSettings(); }
FormatRecord& printFormat() { return displayAttributes().Format[kPrint]; }
FontSpec& printFont(int e) { return displayAttributes().Elements[e].slot[kPrint].Font; }

INSTANTIATE_TEST_SUITE_P(
        Keys, SettingsRangeTest,
        ::testing::Values(
                OutOfRange{"CDLGFileIndex=40000", [] { return double(settings().CDLGFileIndex); }, 6},
                OutOfRange{"LineNumberStart=2147483647", [] { return double(settings().LineNumberStart); }, 1000},
                OutOfRange{"LineNumberIncrement=99999999999", [] { return double(settings().LineNumberIncrement); },
                           100},
                OutOfRange{"LineNumberIncrement=-5", [] { return double(settings().LineNumberIncrement); }, 1},
                OutOfRange{"LineNumberHow=40000", [] { return double(settings().LineNumberHow); }, 3},
                OutOfRange{"PageNumberHow=-40000", [] { return double(settings().PageNumberHow); }, 1},
                OutOfRange{"PrintQuality=-99999999999", [] { return double(settings().PrintQuality); }, -4},
                OutOfRange{"[Format]\nIndentAmount.Print=99999", [] { return double(printFormat().IndentAmount); }, 16},
                OutOfRange{"[Format]\nIndentAmount.Print=-32769", [] { return double(printFormat().IndentAmount); }, 4},
                OutOfRange{"[Format]\nTabWidth.Print=40000", [] { return double(printFormat().TabWidth); }, 32},
                OutOfRange{"[Format]\nOrphan.Print=0", [] { return double(printFormat().Orphan); }, 1},
                OutOfRange{"[P1.Print]\nColumns=99999", [] { return double(pageSettings().Columns.Columns); }, 16},
                OutOfRange{"[P1.Print]\nColumnWidth=-99999999999", [] { return double(pageSettings().Columns.Width); },
                           12240},
                OutOfRange{"[P1.Print]\nColumnSpacing=-1", [] { return double(pageSettings().Columns.Gutter); }, 720},
                OutOfRange{"[P1.Print]\nMargins=-1100000000 -1100000000 720 720",
                           [] { return double(pageSettings().Margins.Bottom + pageSettings().Margins.Left); },
                           720 + 1440},
                OutOfRange{"[P1.Print]\nFontAttr.Comments=No No No No 0.01",
                           [] { return printFont(kElemComments).Size; }, 1},
                OutOfRange{"[P1.Print]\nFontAttr.Literals=No No No No 1000000000",
                           [] { return printFont(kElemLiterals).Size; }, 1638},
                OutOfRange{"[P1.Print]\nColor.Foreground.Comments=99999999999",
                           [] { return double(displayAttributes().Elements[kElemComments].slot[kPrint].ForeColor); },
                           0x008000}),
        [](const ::testing::TestParamInfo<OutOfRange>& info) {
            std::string name = keyOf(info.param);
            std::replace_if(
                    name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
            return name + "_" + std::to_string(info.index);
        });

TEST_F(SettingsStoreTest, ElementAttributesAreNormalised) {
    loadFrom(
            "[General]\nCurrentPrinter=P1\n"
            "[Display]\nFontAttr.Comments=True Yes -1 no 9\nColor.Background.Comments=16777215\n"
            "[P1.Print]\nColor.Background.Comments=16777215\nFontAttr.KeyWords=YES\n"
            "[Format]\nProcSkip.Display=\nNewPage.Display=Yes\n");
    const FontSpec& f = element(kDisplay, kElemComments).Font;
    EXPECT_FALSE(f.Bold);  // True is not the word of the Yes/No form
    EXPECT_TRUE(f.Italic);
    EXPECT_TRUE(f.Underline);
    EXPECT_FALSE(f.Strikethrough);
    EXPECT_EQ(f.Size, 9);
    EXPECT_EQ(element(kDisplay, kElemComments).BackColor, 2147483653u);
    EXPECT_EQ(element(kPrint, kElemComments).BackColor, 16777215u);
    // A short list takes the rest of the element's defaults.
    const FontSpec& k = element(kPrint, kElemKeyWords).Font;
    EXPECT_TRUE(k.Bold);
    EXPECT_FALSE(k.Italic);
    EXPECT_EQ(k.Size, 10);
    EXPECT_EQ(element(kPrint, kElemKeyWords).ForeColor, 16711680u);
    EXPECT_EQ(displayAttributes().Format[kDisplay].ProcSkip, 'P');
    EXPECT_EQ(displayAttributes().Format[kPrint].ProcSkip, 'N');
}

// Values no one would choose on purpose give way to the defaults: a window place off every
// screen or too small to work in, negative widths and font sizes, text in its background's colour.
TEST_F(SettingsStoreTest, NonsenseGetsSaneValues) {
    setScreenSizeTwips(1920 * 15, 1080 * 15);
    const std::array<std::int32_t, 4> place{2880, 2700, 23040, 10800};  // a tenth in, a sixth down
    for (const char* screen : {"999999 999999 12000 9000", "-20000 300 12000 9000", "300 -5000 12000 9000",
                               "300 300 1200 9000", "300 300 12000 900", "300 300 -12000 -9000", "1 2 99999999999 4"}) {
        loadFrom(std::string("[General]\nScreen=") + screen + "\n");
        EXPECT_EQ(hlydSettings().Screen, place) << screen;
    }
    loadFrom("[General]\nWindowState=40000\nPaperSize=" + std::string(400, '9') + "\n");
    EXPECT_EQ(hlydSettings().WindowState, 0);
    EXPECT_EQ(hlydSettings().PaperSize, 265);
    loadFrom("[General]\nScreen=-3000 300 12000 9000\n");  // partly off the left edge: still usable
    EXPECT_EQ(hlydSettings().Screen, (std::array<std::int32_t, 4>{-3000, 300, 12000, 9000}));
    setScreenAreasTwips({{0, 0, 28800, 16200}, {28800, 0, 28800, 16200}});
    loadFrom("[General]\nScreen=30000 300 12000 9000\n");  // on the second screen
    EXPECT_EQ(hlydSettings().Screen, (std::array<std::int32_t, 4>{30000, 300, 12000, 9000}));
    setScreenSizeTwips(1920 * 15, 1080 * 15);

    loadFrom(
            "[General]\nCurrentPrinter=P1\n"
            "[Format]\nIndentAmount.Display=-3\nTabWidth.Print=-1\nTabWidth.Display=0\n"
            "[Display]\nFontAttr.Comments=No Yes No No -9\n"
            "Color.Foreground.Identifiers=255\nColor.Background.Identifiers=255\n"
            "Color.Foreground.Literals=16777215\nColor.Background.Literals=16777215\n"
            "[P1.Print]\nFontAttr.KeyWords=Yes No No No -1\n"
            "Color.Foreground.Literals=0\nColor.Background.Literals=0\n");
    const PerDestination<FormatRecord>& format = displayAttributes().Format;
    EXPECT_EQ(format[kDisplay].IndentAmount, 4);
    EXPECT_EQ(format[kPrint].TabWidth, 4);
    EXPECT_EQ(format[kDisplay].TabWidth, 0);  // no tab width is a choice
    EXPECT_EQ(element(kDisplay, kElemComments).Font.Size, 10);
    EXPECT_EQ(element(kPrint, kElemKeyWords).Font.Size, 10);
    EXPECT_EQ(element(kDisplay, kElemIdentifiers).ForeColor, 0u);
    EXPECT_EQ(element(kDisplay, kElemIdentifiers).BackColor, 255u);
    EXPECT_EQ(element(kDisplay, kElemLiterals).ForeColor, 0u);  // white on the white it was stored as
    // The default colour is the background's too: the default background comes back with it.
    EXPECT_EQ(element(kPrint, kElemLiterals).ForeColor, 0u);
    EXPECT_EQ(element(kPrint, kElemLiterals).BackColor, 16777215u);
}

// The size the user gave the list of open files comes back; a size no one would choose gives the
// list its own.
TEST_F(SettingsStoreTest, TheFileListKeepsItsSize) {
    setScreenSizeTwips(1920 * 15, 1080 * 15);
    loadFrom("[General]\nFileList=9000 6000\n");
    EXPECT_EQ(hlydSettings().FileList, (std::array<std::int32_t, 2>{9000, 6000}));
    hlydSettings().FileList = {12000, 7500};
    saveWindowState();
    EXPECT_NE(iniText().find("FileList=12000 7500"), std::string::npos);
    for (const char* size : {"", "9000", "10 6000", "9000 -6000", "99999999 6000", "9000 99999999", "wide tall"}) {
        loadFrom(std::string("[General]\nFileList=") + size + "\n");
        EXPECT_EQ(hlydSettings().FileList, (std::array<std::int32_t, 2>{0, 0})) << size;
    }
}

TEST_F(SettingsStoreTest, DialectReadFromDialectSavedUnderDefault) {
    loadFrom("[Dialect]\nDialect=4\nDefault=5\nDetect=manual\n");
    EXPECT_EQ(hlydSettings().Dialect, "4");
    EXPECT_FALSE(hlydSettings().DetectDialect);
    hlydSettings().Dialect = "3";
    sbDisplayINISave();
    clearProfileCache();
    EXPECT_EQ(iniHandler().ReadString("Dialect", "", "Dialect"), "4");
    EXPECT_EQ(iniHandler().ReadString("Default", "", "Dialect"), "3");
    EXPECT_EQ(iniHandler().ReadString("Detect", "", "Dialect"), "MANUAL");
}

TEST_F(SettingsStoreTest, EachSaveRoutineWritesOnlyItsKeys) {
    auto keysAfter = [&](void (*save)()) {
        resetSettings();
        clearProfileCache();
        fs::remove(iniPath());
        sbInitINI();
        sbINIGetInfo(true);
        EXPECT_FALSE(fs::exists(iniPath())) << "reading must not write";
        save();
        return keysInFile();
    };
    using Keys = std::set<std::string>;
    fs::create_directories(settingsDirectory());
    EXPECT_EQ(keysAfter(sbPrintINISave),
              (Keys{"General/OptionalHeading", "General/ProcContents", "General/TableOfContents",
                    "General/CrossReference", "General/PrintContinuous", "View/Code.Print", "View/FormDef.Print",
                    "Format/SkipAttributes.Print"}));
    EXPECT_EQ(keysAfter(savePrinterState), (Keys{"General/Orientation", "General/CurrentPrinter", "General/Duplex",
                                                 "General/PaperSize", "General/Copies", "General/PrintQuality"}));
    EXPECT_EQ(keysAfter(saveWindowState), (Keys{"General/WindowState", "General/Screen", "General/ToolBar",
                                                "General/ToolTips", "General/StatusBar", "General/FileList"}));
    EXPECT_EQ(keysAfter([] { saveElementAttributes(kPrint, kElemKeyWords); }),
              (Keys{"PDF.Print/Color.Background.KeyWords", "PDF.Print/Color.Foreground.KeyWords",
                    "PDF.Print/FontName.KeyWords", "PDF.Print/FontAttr.KeyWords"}));
    Keys display = keysAfter(sbDisplayINISave);
    for (const char* key :
         {"General/User Name", "General/ShowOpenDialog", "Format/ContinueGenerate.Display", "Format/TabWidth.Display",
          "View/Code.Display", "Dialect/Default", "Dialect/Detect", "Files/ProjectExtNew"})
        EXPECT_TRUE(display.count(key)) << key;
    for (const char* key : {"Format/ContinueHonor.Display", "Format/ProcSkip.Display", "Format/Orphan.Display",
                            "Dialect/Dialect", "View/Code.Print", "Format/SkipAttributes.Print"})
        EXPECT_FALSE(display.count(key)) << key;
    Keys options = keysAfter(sbPrintOptionsINISave);
    for (const char* key : {"General/HeadingLeft", "General/FootingRight", "PDF.Print/Margins", "PDF.Print/ColumnWidth",
                            "Format/Orphan.Print", "General/SaveHYFile"})
        EXPECT_TRUE(options.count(key)) << key;
    for (const char* key : {"Format/Orphan.Display", "General/Copies", "General/OptionalHeading"})
        EXPECT_FALSE(options.count(key)) << key;
    Keys debug = keysAfter(saveDebugSettings);
    EXPECT_EQ(debug.size(), 9u);
    EXPECT_TRUE(debug.count("Debug/LogFile"));
}

// Junk of every byte: the settings load with their defaults, and the first-run save adds its keys
// behind the junk, which stays byte for byte, lone CRs and all.
TEST_F(SettingsStoreTest, JunkFileLoadsWithDefaultsAndIsKept) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    std::string junk;
    while (junk.size() < 2'000'000) junk += static_cast<char>(byte(random));
    writeIni(junk);
    loadSettingsAtStartup();
    const HlydSettings& s = hlydSettings();
    EXPECT_TRUE(s.FirstRun);
    EXPECT_EQ(s.HeadingLeft, kHeadingLeftDefault);
    EXPECT_EQ(s.Copies, 1);
    EXPECT_EQ(s.BasicExt, "BAS|CLS");
    EXPECT_EQ(pageSettings().Margins.Left, 720);
    EXPECT_EQ(displayAttributes().Format[kDisplay].IndentAmount, 4);
    EXPECT_TRUE(ui.shown.empty());
    std::string after = iniText();
    ASSERT_GT(after.size(), junk.size());
    EXPECT_TRUE(after.compare(0, junk.size(), junk) == 0) << "the junk was changed";
    clearProfileCache();
    EXPECT_EQ(iniHandler().ReadString("Version", "", "General"), theAppInfo().Version);
}

// The user's lines keep their own endings, whatever the mix; a header that is not one does not take
// our keys: they go into sections of their own behind the user's text.
TEST_F(SettingsStoreTest, UserTextKeepsItsLineEndsAndOurKeysTheirOwnSections) {
    const std::string mine = "[Mine]\r\nA=1\nB=2\r[General\nVersion=junk\r\n\x01\x02 no end";
    writeIni(mine);
    loadSettingsAtStartup();
    EXPECT_TRUE(hlydSettings().FirstRun);
    std::string after = iniText();
    ASSERT_GT(after.size(), mine.size());
    EXPECT_EQ(after.substr(0, mine.size()), mine);
    std::string ours = after.substr(mine.size());
    EXPECT_EQ(ours.rfind("\r\n\r\n[", 0), 0u) << ours.substr(0, 40);
    EXPECT_NE(ours.find("\r\n[General]\r\n"), std::string::npos);
    std::size_t crlf = 0;
    for (std::size_t at = ours.find("\r\n"); at != std::string::npos; at = ours.find("\r\n", at + 2)) ++crlf;
    EXPECT_EQ(crlf, static_cast<std::size_t>(std::count(ours.begin(), ours.end(), '\n')))
            << "our lines end as the file's first line does";
    clearProfileCache();
    EXPECT_EQ(iniHandler().ReadString("A", "", "Mine"), "1");
    EXPECT_EQ(iniHandler().ReadString("B", "", "Mine"), "2");
    EXPECT_EQ(iniHandler().ReadString("Version", "", "General"), theAppInfo().Version);
}

TEST_F(SettingsStoreTest, UncreatableDirectoryStartsWithDefaultsAndTellsOnce) {
    std::ofstream(base / "plain") << "not a directory";
    useConfigDir(base / "plain" / "config");
    loadSettingsAtStartup();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(settingsDirectory()), std::string::npos);
    const HlydSettings& s = hlydSettings();
    EXPECT_FALSE(s.SettingsWritable);
    EXPECT_EQ(s.HeadingLeft, kHeadingLeftDefault);
    EXPECT_EQ(s.WindowState, 0);
    // Later saves are skipped quietly: the user was told once.
    saveAllSettings();
    sbPrintINISave();
    savePrinterState();
    EXPECT_EQ(ui.shown.size(), 1u);
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(base)) names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"plain"});
    std::ifstream in(base / "plain");
    std::string content;
    std::getline(in, content);
    EXPECT_EQ(content, "not a directory");
}

TEST_F(SettingsStoreTest, ReadOnlySettingsFileIsToldAndKept) {
    const std::string before = "[General]\nVersion=0.0.1\nHeadingLeft=mine\n";
    writeIni(before);
    fs::permissions(iniPath(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    loadSettingsAtStartup();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(iniPath().string() + " is read-only"), std::string::npos) << ui.shown[0].text;
    EXPECT_EQ(hlydSettings().HeadingLeft, "mine");
    saveAllSettings();
    EXPECT_EQ(iniText(), before);
}

// The file was writable at start and is read-only by the first save: the user hears it then, with
// the file and the reason, and only then; the saves after it change nothing and say nothing.
TEST_F(SettingsStoreTest, ASaveThatFailsLaterIsToldOnce) {
    loadSettingsAtStartup();
    ASSERT_TRUE(ui.shown.empty());
    const std::string before = iniText();
    fs::permissions(iniPath(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    hlydSettings().HeadingLeft = "changed";
    sbPrintOptionsINISave();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(iniPath().string() + " is read-only"), std::string::npos) << ui.shown[0].text;
    EXPECT_NE(ui.shown[0].text.find("will not be kept"), std::string::npos);
    saveAllSettings();
    saveWindowState();
    SaveMRU();
    EXPECT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(iniText(), before);
}

// A settings file that has become a directory cannot even be read for the batch; that is told too.
TEST_F(SettingsStoreTest, ASaveIntoWhatIsNoLongerAFileIsTold) {
    loadSettingsAtStartup();
    fs::remove(iniPath());
    fs::create_directory(iniPath());
    SaveMRU();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(iniPath().string() + " is not a regular file"), std::string::npos)
            << ui.shown[0].text;
}

// The folder is remembered between keys, but follows the variables it comes from.
TEST(SettingsDirectoryTest, FollowsTheEnvironmentItComesFrom) {
    auto saved = [](const char* name) {
        const char* value = std::getenv(name);
        return value ? std::optional<std::string>(value) : std::nullopt;
    };
    auto restore = [](const char* name, const std::optional<std::string>& value) {
        if (value) ::setenv(name, value->c_str(), 1);
        else ::unsetenv(name);
    };
    const auto config = saved("HLYD_CONFIG_DIR"), xdg = saved("XDG_CONFIG_HOME"), home = saved("HOME");
    ::unsetenv("HLYD_CONFIG_DIR");
    ::setenv("XDG_CONFIG_HOME", "/first", 1);
    std::string first = settingsDirectory();
    ::setenv("XDG_CONFIG_HOME", "/second", 1);
    std::string second = settingsDirectory();
    ::unsetenv("XDG_CONFIG_HOME");
    ::setenv("HOME", "/home/someone", 1);
    std::string fromHome = settingsDirectory();
    ::setenv("HLYD_CONFIG_DIR", "/named", 1);
    std::string named = settingsDirectory();
    restore("HLYD_CONFIG_DIR", config);
    restore("XDG_CONFIG_HOME", xdg);
    restore("HOME", home);
    EXPECT_EQ(fs::path(first), fs::path("/first/halyard"));
    EXPECT_EQ(fs::path(second), fs::path("/second/halyard"));
    EXPECT_EQ(fs::path(fromHome), fs::path("/home/someone/.config/halyard"));
    EXPECT_EQ(named, "/named");
}

}  // namespace
}  // namespace hlyd
