// The one reset between tests: whatever a run left in the modules, the next starts from nothing.
#include "analysis/basiclan_state.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "files/file_table.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "shell/app_start.h"
#include "base/c_debug.h"
#include "files/main_window_model.h"
#include "shell/module_reset.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

class ModuleResetTest : public ProgramTest {};

TEST_F(ModuleResetTest, AShownFileAndItsRunLeaveNothingBehind) {
    showSource("Reset.bas", "Attribute VB_Name = \"Reset\"\nSub Start()\n    Beep\nEnd Sub\n");
    ASSERT_GT(theSourceTables().RecordCount, 0);
    ASSERT_GT(mainWindow().cboProc.ListCount(), 0);
    theDebug().setStatus(kStatusCancelled, 2);
    theDebug().TraceApplication = true;
    hlydSettings().SettingsLossTold = true;
    hlydSettings().HeadingLeft = "left behind";
    hlydMain().StartMode = 3;
    viewingState().InScroll = true;
    localeTexts().DecimalSeparator = ",";

    resetModuleState();

    EXPECT_EQ(theSourceTables().RecordCount, 0);  // the tables outlived every earlier reset
    EXPECT_EQ(theSourceTables().TokenCount, 0);
    EXPECT_FALSE(basiclan().BabInitDone);
    EXPECT_EQ(oFile().Count(), 0);
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
}

}  // namespace
}  // namespace hlyd::test
