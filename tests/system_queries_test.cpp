// The answers the logic takes from the system: separators with their fallback, numbers read
// from free text, file checks, name splitting and the version text.
#include <filesystem>
#include <fstream>

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

TEST_F(SystemQueriesTest, FileExistsOnlyForReadableFiles) {
    fs::path file = fs::path(dir) / "present.txt";
    std::ofstream(file) << "x";
    EXPECT_TRUE(FileExists(file.string()));
    EXPECT_FALSE(FileExists((fs::path(dir) / "absent.txt").string()));
    EXPECT_FALSE(FileExists(dir));
    EXPECT_FALSE(FileExists(""));
}

TEST_F(SystemQueriesTest, FileNameSplitAtLastSeparator) {
    const std::vector<std::vector<std::string>> cases = {  // whole name, name, directory
        {"A.BAS", "A.BAS", ""}, {"C:\\A.BAS", "A.BAS", "C:\\"},
        {"/home/u/src/Main.frm", "Main.frm", "/home/u/src/"}, {"C:\\VB\\", "", "C:\\VB\\"}};
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
