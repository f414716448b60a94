// Contents entries into lines: wrapped declarations and shortened paths, measured one unit a
// character.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "printing/contents_lines.h"

namespace hlyd {
namespace {

float characters(const std::string& text) { return static_cast<float>(text.size()); }

struct WrapCase {
    std::string text;
    float room;
    std::vector<std::string> lines;
};

class WrapAtBlanksTest : public ::testing::TestWithParam<WrapCase> {};

// Wrapped lines start at one indent, however many blanks stood at the break; a word wider than a
// line is cut where the line ends.
TEST_P(WrapAtBlanksTest, BreaksAtBlanksWithinTheRoom) {
    const WrapCase& c = GetParam();
    std::vector<std::string> lines = wrapAtBlanks(c.text, 2, 4, c.room, characters);
    EXPECT_EQ(lines, c.lines);
    for (const std::string& line : lines) EXPECT_LE(characters(line), c.room) << line;
}

INSTANTIATE_TEST_SUITE_P(
        Entries, WrapAtBlanksTest,
        ::testing::Values(WrapCase{"Sub A()", 20, {"  Sub A()"}},
                          WrapCase{"Sub A(ByVal B As Long)", 14, {"  Sub A(ByVal", "    B As Long)"}},
                          WrapCase{"Sub A(X,   Y)", 10, {"  Sub A(X,", "    Y)"}},
                          WrapCase{"Sub " + std::string(12, 'W'), 10, {"  Sub", "    WWWWWW", "    WWWWWW"}},
                          WrapCase{"", 10, {"  "}}));

struct PathCase {
    std::string path;
    float room;
    std::string shown;
};

class ShortenPathTest : public ::testing::TestWithParam<PathCase> {};

TEST_P(ShortenPathTest, KeepsTheStartAndTheFileName) {
    const PathCase& c = GetParam();
    std::string shown = shortenPathToWidth(c.path, c.room, characters);
    EXPECT_EQ(shown, c.shown);
    EXPECT_LE(characters(shown), c.room);
}

INSTANTIATE_TEST_SUITE_P(Paths, ShortenPathTest,
                         ::testing::Values(PathCase{"C:\\VB\\A.bas", 20, "C:\\VB\\A.bas"},
                                           PathCase{"/home/user/projects/search and replace/Module.bas", 24,
                                                    "/home/user.../Module.bas"},
                                           PathCase{"C:\\Deep\\Folder\\Form1.frm", 13, "...\\Form1.frm"},
                                           PathCase{"/p/AVeryLongModuleName.bas", 13, "AVery...e.bas"},
                                           PathCase{"NoFolderAtAll.cls", 10, "NoFo...cls"}));

}  // namespace
}  // namespace hlyd
