// Each Session keeps its own state: what one run loads and sets, another run never sees, and a
// renewed Session starts from nothing while what was held into it stays valid.
#include <optional>
#include <string>
#include <vector>

#include "analysis/basiclan_state.h"
#include "base/c_debug.h"
#include "base/message_box.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "platform/session.h"
#include "printing/contents.h"
#include "printing/print_status.h"
#include "printing/printer_start.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "shell/app_start.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd::test {
namespace {

class SessionTest : public ProgramTest {
protected:
    void showIn(Session& session, const std::string& name, const std::string& text) {
        SessionScope scope(session);
        BabInitFrom(keywordFilePath());
        loadSettingsAtStartup();
        showSource(name, text);
    }

    static std::vector<std::string> procedures() {
        std::vector<std::string> names;
        for (std::size_t i = 1; i < yProc().size(); ++i) names.push_back(yProc()[i].Name);
        return names;
    }
};

TEST_F(SessionTest, TwoSessionsKeepEachTableTheirOwn) {
    Session first, second;
    showIn(first, "First.bas", "Attribute VB_Name = \"First\"\nSub One()\nEnd Sub\n");
    showIn(second, "Second.bas",
           "Attribute VB_Name = \"Second\"\nDim Two As Long\nSub Three()\nEnd Sub\nSub Four()\nEnd Sub\n");
    {
        SessionScope scope(second);
        hlydSettings().HeadingLeft = "second's";
        theDebug().TraceApplication = true;
    }

    SessionScope scope(first);
    ASSERT_EQ(oFile().Count(), 1);
    EXPECT_NE(oFile().Item(1).FileName.find("First.bas"), std::string::npos);
    EXPECT_EQ(theSourceTables().RecordCount, 4);
    EXPECT_EQ(procedures(), std::vector<std::string>{"One"});
    EXPECT_EQ(fileTable().sVBName, "First");
    EXPECT_NE(hlydSettings().HeadingLeft, "second's");
    EXPECT_FALSE(theDebug().TraceApplication);
    {
        SessionScope inner(second);
        ASSERT_EQ(oFile().Count(), 1);
        EXPECT_NE(oFile().Item(1).FileName.find("Second.bas"), std::string::npos);
        EXPECT_EQ(theSourceTables().RecordCount, 7);
        EXPECT_EQ(procedures(), (std::vector<std::string>{"Three", "Four"}));
        EXPECT_EQ(hlydSettings().HeadingLeft, "second's");
    }
    EXPECT_EQ(theSourceTables().RecordCount, 4);  // the scope's end gives the first one back
}

TEST_F(SessionTest, ARenewedSessionStartsFromNothingWhereItStands) {
    showSource("Reset.bas", "Attribute VB_Name = \"Reset\"\nSub Start()\n    Beep\nEnd Sub\n");
    SourceTables& heldTables = theSourceTables();
    FileTableModule& heldFiles = fileTable();
    ASSERT_GT(heldTables.RecordCount, 0);
    ASSERT_GT(mainWindow().cboProc.ListCount(), 0);
    theDebug().setStatus(kStatusCancelled, 2);
    theDebug().TraceApplication = true;
    hlydSettings().SettingsLossTold = true;
    hlydSettings().HeadingLeft = "left behind";
    hlydMain().StartMode = 3;
    viewingState().InScroll = true;
    localeTexts().DecimalSeparator = ",";
    addTocEntry(1, "left behind");

    currentSession().renew();

    EXPECT_EQ(&heldTables, &theSourceTables());  // what was held across the reset does not dangle
    EXPECT_EQ(&heldFiles, &fileTable());
    EXPECT_EQ(heldTables.RecordCount, 0);
    EXPECT_EQ(heldTables.TokenCount, 0);
    EXPECT_FALSE(basiclan().BabInitDone);
    EXPECT_EQ(heldFiles.oFile.Count(), 0);
    EXPECT_EQ(mainWindow().cboProc.ListCount(), 0);
    EXPECT_EQ(emitterState().FirstRecord, -1);
    EXPECT_FALSE(viewingState().InScroll);
    EXPECT_EQ(theDebug().BabStatus, kStatusOk);
    EXPECT_EQ(theDebug().BabStatusDetail, 0);
    EXPECT_FALSE(theDebug().TraceApplication);
    EXPECT_FALSE(hlydSettings().SettingsLossTold);
    EXPECT_TRUE(hlydSettings().HeadingLeft.empty());
    EXPECT_EQ(hlydMain().StartMode, 0);
    EXPECT_EQ(localeTexts().DecimalSeparator, ".");
    EXPECT_EQ(TOC().size(), 1u);
}

// The ports and views of one Session are never asked from another; a view installed for a while
// goes back to what its own Session had, whichever is current then. A reset keeps what the run
// was given, but not the printer in force, which went with the printing part that opened it.
TEST_F(SessionTest, EachSessionAsksItsOwnPortsAndViews) {
    Session first, second;
    ScriptedUi firstUi, secondUi;
    FixedClock secondClock;
    secondClock.moment = 42;
    std::vector<std::string> firstTold, secondTold;
    std::optional<TestViews> firstViews, secondViews;
    {
        SessionScope scope(first);
        setUi(&firstUi);
        setPrinterSystem(&printers);
        firstViews.emplace().statusChanged = [&firstTold](const std::string& text) { firstTold.push_back(text); };
    }
    {
        SessionScope scope(second);
        setUi(&secondUi);
        setClock(&secondClock);
        secondViews.emplace().statusChanged = [&secondTold](const std::string& text) { secondTold.push_back(text); };
        showPrintStatus("second's page");
        showMessage("second's message", "Halyard");
        EXPECT_EQ(theClock().now(), 42);
        EXPECT_EQ(printerSystem(), nullptr);
    }
    {
        SessionScope scope(first);
        showPrintStatus("first's page");
        showMessage("first's message", "Halyard");
        EXPECT_NE(theClock().now(), 42);
        InitPrinter();
        ASSERT_NE(currentPrinter(), nullptr);
        first.renew();
        EXPECT_EQ(currentPrinter(), nullptr);
        EXPECT_EQ(printerSurface(), nullptr);
        EXPECT_EQ(&theUi(), &firstUi);
        EXPECT_EQ(printerSystem(), &printers);
    }
    EXPECT_EQ(firstTold, std::vector<std::string>{"first's page"});
    EXPECT_EQ(secondTold, std::vector<std::string>{"second's page"});
    ASSERT_FALSE(firstUi.shown.empty());  // the start of the printer may have told more
    EXPECT_EQ(firstUi.shown[0].text, "first's message");
    ASSERT_EQ(secondUi.shown.size(), 1u);
    EXPECT_EQ(secondUi.shown[0].text, "second's message");

    SessionScope scope(second);
    firstViews.reset();
    EXPECT_EQ(&theViews(), &*secondViews);
    SessionScope back(first);
    EXPECT_EQ(&theViews(), &windowlessViews());
}

}  // namespace
}  // namespace hlyd::test
