// The Display Options dialog without a window: its rules on the extension lists, the dialect
// choice, the fonts tab, and what reaches the settings file on OK, on Cancel and on closing.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "fake_surface.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "shell/display_options.h"
#include "models/display_options_fonts.h"
#include "models/display_options_rules.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd {
namespace {

using Strings = std::vector<std::string>;

class BeepCountingUi : public test::ScriptedUi {
public:
    void beep() override { ++beeps; }
    int beeps = 0;
};

class DisplayOptionsTest : public test::SurfaceTest {
protected:
    void SetUp() override {
        test::SurfaceTest::SetUp();
        setUi(&beeping);
        fillDisplayOptions(m);
    }
    std::string ini() const {
        std::ifstream in(dir + "/HLYD.INI");
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    Strings messagesShown() const {
        Strings texts;
        for (const MessageBoxRequest& r : beeping.shown) texts.push_back(r.text);
        return texts;
    }
    BeepCountingUi beeping;
    test::TestViews views;
    DisplayOptionsModel m;
};

TEST_F(DisplayOptionsTest, ExtensionsAreCheckedWhenTheFieldIsLeft) {
    m.cboExtension = {Strings{"VBP"}, Strings{"FRM"}, Strings{"BAS"}};

    cboExtension_LostFocus(m, kExtProject, " V*P ");
    EXPECT_EQ(m.lblMessage, "Project-file extension may not contain wild-card characters.");
    EXPECT_EQ(m.focus, "cboExtension0");
    EXPECT_EQ(beeping.beeps, 1);

    cboExtension_LostFocus(m, kExtCode, "a/b");
    EXPECT_EQ(m.lblMessage, "File-extension is illegal.");
    cboExtension_LostFocus(m, kExtCode, "bas");
    EXPECT_EQ(m.lblMessage, "You already have an extension of bas");
    cboExtension_LostFocus(m, kExtCode, "   ");
    EXPECT_FALSE(m.changed);

    // Wild cards are patterns in the other lists; a new extension joins in upper case.
    cboExtension_LostFocus(m, kExtCode, " b?s ");
    EXPECT_EQ(m.cboExtension[kExtCode], (Strings{"BAS", "B?S"}));
    EXPECT_TRUE(m.changed);
    EXPECT_EQ(m.lblMessage, "");
    EXPECT_EQ(beeping.beeps, 1);

    cboExtension_DblClick(m, kExtCode, "BAS");
    EXPECT_EQ(m.cboExtension[kExtCode], (Strings{"B?S"}));
    cboExtension_DblClick(m, kExtCode, "B?S");
    EXPECT_EQ(m.lblMessage, "You may not remove all File-extensions from the list.");
    EXPECT_EQ(m.cboExtension[kExtCode], (Strings{"B?S"}));
}

TEST_F(DisplayOptionsTest, AChosenDialectAddsItsExtensionsAndTakesNoneAway) {
    m.cboExtension = {Strings{"MAK"}, Strings{"FRM"}, Strings{"BAS"}};
    optDialect_Click(m, 0);
    optDialect_Click(m, 3);
    EXPECT_EQ(m.cboExtension, (std::array<Strings, 3>{Strings{"MAK"}, Strings{"FRM"}, Strings{"BAS"}}));
    EXPECT_TRUE(m.changed);

    optDialect_Click(m, 1);
    EXPECT_EQ(m.cboExtension, (std::array<Strings, 3>{Strings{"MAK", "VBP"}, Strings{"FRM"}, Strings{"BAS", "CLS"}}));
    optDialect_Click(m, 2);
    optDialect_Click(m, 2);
    EXPECT_EQ(m.cboExtension, (std::array<Strings, 3>{Strings{"MAK", "VBP", "VBG"}, Strings{"FRM", "CTL", "DOB", "PAG"},
                                                      Strings{"BAS", "CLS"}}));
    optDialect_Click(m, 0);
    EXPECT_EQ(m.cboExtension[kExtForms].size(), 4u);

    optAutoDetect_Click(m, kDetectManual);
    EXPECT_EQ(m.lblDialect, "All files will be processed according to the current Default Dialog selection.");
}

TEST_F(DisplayOptionsTest, FontsTheScreenLacksAreRefused) {
    displayAttributes().Elements[kElemComments].slot[kPrint].Font = {"Gothic Nowhere", 12, false, true};
    displayAttributes().Elements[kElemKeyWords].slot[kPrint].Font = {"Arial", 12, true};
    copyFontsFromPrintSettings(m);
    EXPECT_EQ(messagesShown(),
              (Strings{"Cannot copy Comments font Gothic Nowhere\nThis font is not a valid display font"}));
    EXPECT_EQ(m.elements[kElemKeyWords].FontName, "Arial");
    EXPECT_EQ(fontText(m.elements[kElemKeyWords].Font), "Arial, 12 pt, Bold");
    EXPECT_NE(m.elements[kElemComments].FontName, "Gothic Nowhere");

    EXPECT_FALSE(changeAllFonts(m, {"Gothic Nowhere", 9}));
    EXPECT_EQ(messagesShown().back(), "This font is not a valid display font");
    EXPECT_EQ(m.elements[kElemIdentifiers].FontName, "Courier New");
    EXPECT_TRUE(changeAllFonts(m, {"Arial", 9}));
    for (int e = 1; e <= kElementCount; ++e) EXPECT_EQ(m.elements[e].FontName, "Arial") << e;
    EXPECT_EQ(fontDialogTitle(kElemLiterals), "Set Font for: Literals");
}

TEST_F(DisplayOptionsTest, OkWritesTheSettingsFileAndTheRecords) {
    views.displayOptions = [](DisplayOptionsModel& d) {
        d.txtUser[0] = "Ada";
        d.txtTabWidth = "x";
        EXPECT_FALSE(cmdOk_Click(d));
        EXPECT_EQ(d.lblMessage, "Tab Width must be a whole number from 1 to 32.");
        d.txtTabWidth = "8";
        d.txtDefaultFileLoc = "/home/ada/vb";
        optDialect_Click(d, 1);
        optAutoDetect_Click(d, kDetectManual);
        setElementColour(d, kElemLiterals, true, 255);
        EXPECT_TRUE(setElementFont(d, kElemLiterals, {"Arial", 11, false, true}));
        EXPECT_TRUE(cmdOk_Click(d));
    };
    mnuOptionsDisplay_Click();

    std::string text = ini();
    for (const char* line :
         {"User Name=Ada", "TabWidth.Display=8", "DefaultFileLoc=/home/ada/vb", "Default=4", "Detect=MANUAL",
          "Color.Foreground.Literals=255", "FontName.Literals=Arial", "FontAttr.Literals=No Yes No No 11"})
        EXPECT_NE(text.find(std::string(line) + "\n"), std::string::npos) << line;
    EXPECT_EQ(displayAttributes().Format[kDisplay].TabWidth, 8);
    EXPECT_EQ(hlydSettings().Dialect, "4");
}

// A font the screen lacks never reaches the view unannounced, and the view is drawn with the
// options accepted.
TEST_F(DisplayOptionsTest, OkChecksTheFontsAndDrawsTheViewAnew) {
    emitterState().ViewHeight = 8000;
    mainWindow().emitRequestedData = [] {
        std::int32_t first = 1;
        HlydDSEmitRequestedData(first);
    };
    showSource("module.bas", test::procedures(3, 30));
    setScrollValue(20);
    surface.calls.clear();
    m.elements[kElemLiterals].FontName = m.elements[kElemLiterals].Font.Name = "Gothic Nowhere";
    ASSERT_TRUE(cmdOk_Click(m));
    EXPECT_EQ(messagesShown(),
              (Strings{"Literals: Gothic Nowhere is not a valid display font; Arial is used instead."}));
    EXPECT_EQ(displayAttributes().Elements[kElemLiterals].slot[kDisplay].FontName, "Arial");
    std::vector<test::FakeSurface::Call> printed = surface.callsOf("print");
    ASSERT_FALSE(printed.empty());
    EXPECT_EQ(printed.front().text, "X1_19");
}

TEST_F(DisplayOptionsTest, NothingUnacceptedReachesTheSettingsFile) {
    const std::string before = ini();
    views.displayOptions = [this](DisplayOptionsModel& d) {
        d.txtUser[1] = "Initech";
        d.changed = true;
        beeping.answers = {MsgAnswer::Cancel, MsgAnswer::No};
        EXPECT_FALSE(Form_QueryUnload(d));  // stays open
        EXPECT_TRUE(Form_QueryUnload(d));   // closes, the edits dropped
    };
    mnuOptionsDisplay_Click();
    EXPECT_EQ(messagesShown(), (Strings{"Do You Want to Save Your Options?", "Do You Want to Save Your Options?"}));
    EXPECT_EQ(beeping.shown.front().title, "Save Options");
    EXPECT_EQ(ini(), before);
    EXPECT_EQ(hlydSettings().UserCompany, "");

    views.displayOptions = [this](DisplayOptionsModel& d) {
        d.txtUser[1] = "Initech";
        d.changed = true;
        beeping.answers = {MsgAnswer::Yes};
        EXPECT_TRUE(Form_QueryUnload(d));
    };
    mnuOptionsDisplay_Click();
    EXPECT_NE(ini().find("User Company=Initech\n"), std::string::npos);
}

TEST_F(DisplayOptionsTest, TheDefaultLocationIsTheFolderOfTheFileChosen) {
    beeping.openAnswers = {Strings{"/home/ada/vb/App.vbp"}};
    cmdDefaultFileLoc_Click(m);
    ASSERT_EQ(beeping.dialogs.size(), 1u);
    EXPECT_EQ(beeping.dialogs[0].title, "Default File Location");
    EXPECT_EQ(beeping.dialogs[0].filter, "All Files|*.*|Project Files|*.VBP;&.VBG");
    EXPECT_EQ(m.txtDefaultFileLoc, "/home/ada/vb");
    beeping.openAnswers = {Strings{"C:\\VB\\App.vbp"}};
    cmdDefaultFileLoc_Click(m);
    EXPECT_EQ(m.txtDefaultFileLoc, "C:\\VB");
}

}  // namespace
}  // namespace hlyd
