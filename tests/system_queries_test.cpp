// The answers the logic takes from the system: separators with their fallback, numbers read
// from free text, file checks, name splitting and the version text.
#include <filesystem>
#include <fstream>

#include "files/status_progress.h"
#include "settings/locale_paper.h"
#include "settings/system_queries.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

class SystemQueriesTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        saved = localeTexts();
        localeTexts().DecimalSeparator = ".";
        localeTexts().GroupSeparator = ",";
    }
    void TearDown() override {
        localeTexts() = saved;
        ConfigDirTest::TearDown();
    }

    LocaleTexts saved;
};

TEST_F(SystemQueriesTest, SeparatorReplyOfOnlyTheTerminatorFallsBack) {
    EXPECT_EQ(separatorOrFallback(std::string("\0", 1), "."), ".");
    EXPECT_EQ(separatorOrFallback(std::string(), "."), ".");
    EXPECT_EQ(separatorOrFallback(std::string(",\0", 2), "."), ",");
}

TEST_F(SystemQueriesTest, NumberFromFreeText) {
    EXPECT_DOUBLE_EQ(GetNumberFromString("1 1/2"), 1.5);
    EXPECT_DOUBLE_EQ(GetNumberFromString("3/4"), 0.75);
    EXPECT_DOUBLE_EQ(GetNumberFromString("(12)"), -12);
    EXPECT_DOUBLE_EQ(GetNumberFromString("$1,000"), 1000);
    EXPECT_DOUBLE_EQ(GetNumberFromString("1-2"), -12);
    EXPECT_DOUBLE_EQ(GetNumberFromString("abc"), 0);
    // The numerator has left the result, and a zero denominator adds nothing back.
    EXPECT_DOUBLE_EQ(GetNumberFromString("1/0"), 0);
    EXPECT_DOUBLE_EQ(GetNumberFromString("1.5.5"), 1.55);
    // Four decimals, the rest rounded away.
    EXPECT_DOUBLE_EQ(GetNumberFromString("0.123456"), 0.1235);
    localeTexts().DecimalSeparator = ",";
    localeTexts().GroupSeparator = ".";
    EXPECT_DOUBLE_EQ(GetNumberFromString("1.234,5"), 1234.5);
}

// Counts on screen group their digits as the locale does, and not at all where it does not (the C
// locale): the amount separator's "." fallback must not reach them.
TEST_F(SystemQueriesTest, CountsGroupTheirDigitsAsTheLocaleDoes) {
    struct Case {
        const char* reported;
        const char* shown;
    };
    for (const Case& c :
         {Case{"", "1234567"}, Case{",", "1,234,567"}, Case{".", "1.234.567"}, Case{"\xE2\x80\xAF", "1 234 567"},
          Case{"\xC2\xA0", "1 234 567"}, Case{"\xE2\x80\x99", "1'234'567"}}) {
        localeTexts().DigitGroup = plainDigitGroup(c.reported);
        EXPECT_EQ(groupedNumber(1234567), c.shown) << c.reported;
        EXPECT_EQ(groupedNumber(-999), "-999");
    }
}

class LocalePaperTest : public ::testing::TestWithParam<std::pair<const char*, std::int16_t>> {};

TEST_P(LocalePaperTest, LetterInTheUsAndCanadaAndUnderTheCLocale) {
    EXPECT_EQ(paperForLocale(GetParam().first), GetParam().second) << GetParam().first;
}

INSTANTIATE_TEST_SUITE_P(Locales, LocalePaperTest,
                         ::testing::Values(std::pair{"", kPaperLetter}, std::pair{"C", kPaperLetter},
                                           std::pair{"C.UTF-8", kPaperLetter}, std::pair{"POSIX", kPaperLetter},
                                           std::pair{"en_US.UTF-8", kPaperLetter}, std::pair{"en_CA", kPaperLetter},
                                           std::pair{"fr_CA.UTF-8", kPaperLetter}, std::pair{"es_US", kPaperLetter},
                                           std::pair{"en-US", kPaperLetter}, std::pair{"en_GB.UTF-8", kPaperA4},
                                           std::pair{"de_DE@euro", kPaperA4}, std::pair{"fr_FR", kPaperA4},
                                           std::pair{"de-CH", kPaperA4}, std::pair{"ja_JP.eucJP", kPaperA4}));

TEST_F(SystemQueriesTest, FileExistsOnlyForReadableFiles) {
    fs::path file = fs::path(dir) / "present.txt";
    std::ofstream(file) << "x";
    EXPECT_TRUE(FileExists(file.string()));
    EXPECT_FALSE(FileExists((fs::path(dir) / "absent.txt").string()));
    EXPECT_FALSE(FileExists(dir));
    EXPECT_FALSE(FileExists(""));
}

TEST_F(SystemQueriesTest, FileNameSplitAtLastSeparator) {
    const std::vector<std::vector<std::string>> cases = {// whole name, name, directory
                                                         {"A.BAS", "A.BAS", ""},
                                                         {"C:\\A.BAS", "A.BAS", "C:\\"},
                                                         {"/home/u/src/Main.frm", "Main.frm", "/home/u/src/"},
                                                         {"C:\\VB\\", "", "C:\\VB\\"}};
    for (const auto& c : cases) {
        std::string name = "old", directory = "old";
        sbFileNameFromDir(c[0], name, directory);
        EXPECT_EQ((std::vector<std::string>{c[0], name, directory}), c);
    }
}

TEST_F(SystemQueriesTest, WindowHelpers) {
    std::string version = cWindow().WinVersion();
    EXPECT_FALSE(version.empty());
    EXPECT_NE(version.find("Linux"), std::string::npos) << version;
    std::string temp = cWindow().GetTempFile("hly");
    EXPECT_EQ(temp.find('\0'), std::string::npos);
    EXPECT_TRUE(fs::exists(temp)) << temp;
    EXPECT_EQ(fs::path(temp).filename().string().rfind("hly", 0), 0u);
    fs::remove(temp);
}

}  // namespace
}  // namespace hlyd
