// F12 and Shift+F12: from a name in the file shown to its declaration in any open file, and to
// every use of it, without the file shown changing under the reader.
#include <string>
#include <vector>

#include "analysis/source_model.h"
#include "display/view_selection.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "shell/name_jumps.h"
#include "test_support.h"

namespace hlyd {
namespace {

const char* const kTotals =
        "Attribute VB_Name = \"Totals\"\n"
        "Public gTotal As Long\n"
        "Public Sub AddUp(ByVal n As Long)\n"
        "    gTotal = gTotal + n\n"
        "End Sub\n";

const char* const kMain =
        "Attribute VB_Name = \"Main\"\n"
        "Sub Main()\n"
        "    AddUp 2 ' gTotal\n"
        "    Debug.Print gTotal\n"
        "End Sub\n";

class NameJumpsTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        totals = showSource("Totals.bas", kTotals);
        main = showSource("Main.bas", kMain);
    }
    // Where each hit stands: "file:line:column".
    static std::vector<std::string> places(const std::vector<FileHit>& hits) {
        std::vector<std::string> out;
        for (const FileHit& h : hits)
            out.push_back(h.fileName.substr(h.fileName.find_last_of('/') + 1) + ":" + std::to_string(h.hit.record) +
                          ":" + std::to_string(h.hit.column));
        return out;
    }
    std::int16_t totals = 0, main = 0;
};

TEST_F(NameJumpsTest, ANameLeadsToItsDeclarationAndItsUsesWhileTheFileShownStays) {
    // "Debug.Print gTotal": the caret anywhere on the name, its end too.
    for (std::int32_t column : {16, 21}) {
        std::optional<FileHit> declared = declarationOfNameAt({4, column});
        ASSERT_TRUE(declared) << column;
        EXPECT_EQ(places({*declared}), (std::vector<std::string>{"Totals.bas:2:7"}));
        EXPECT_EQ(declared->hit.length, 6);
    }
    EXPECT_EQ(places(usesOfNameAt({4, 16})),
              (std::vector<std::string>{"Totals.bas:2:7", "Totals.bas:4:4", "Totals.bas:4:13", "Main.bas:4:16"}));
    // Indexing loaded every file; the one shown is the one its tables describe again.
    EXPECT_EQ(fileTable().wCurrentFile, main);
    EXPECT_EQ(theSourceTables().Texts->line(2), "Sub Main()");
    // A comment, a keyword and a name the files do not declare lead nowhere.
    for (TextPlace nowhere : {TextPlace{3, 15}, TextPlace{2, 1}, TextPlace{4, 6}}) {
        EXPECT_FALSE(declarationOfNameAt(nowhere)) << nowhere.record << ":" << nowhere.column;
        EXPECT_TRUE(usesOfNameAt(nowhere).empty());
    }
}

TEST_F(NameJumpsTest, GoingToADeclarationShowsItsFileAndSelectsTheName) {
    selectFrom({3, 5}, false);  // "AddUp 2"
    goToDeclaration();
    EXPECT_EQ(fileTable().wCurrentFile, totals);
    EXPECT_EQ(selectionStart().record, 3);
    EXPECT_EQ(selectionStart().column, 11);
    EXPECT_EQ(selectionEnd().column, 16);
    selectFrom({1, 0}, false);
    goToDeclaration();
    EXPECT_EQ(fileTable().wCurrentFile, totals);
    EXPECT_EQ(mainWindow().lblStatus, "No declaration in the open files for the name at the cursor");
}

}  // namespace
}  // namespace hlyd
