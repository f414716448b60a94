#include <filesystem>
#include <fstream>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "platform/session.h"
#include "shell/command_line_job.h"
#include "shell/app_start.h"
#include "shell/start_mode.h"
#include "shell/window_commands.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

TEST(StartModeTest, CommandLineDecidesTheMode) {
    EXPECT_EQ(decideStartMode(kStartStandalone, ""), kStartStandalone);
    EXPECT_EQ(decideStartMode(kStartAutomation, "  "), kStartAutomation);
    EXPECT_EQ(decideStartMode(kStartStandalone, "/init"), kStartInit);
    EXPECT_EQ(decideStartMode(kStartStandalone, "/IDEMODE"), kStartIdeMode);
    EXPECT_EQ(decideStartMode(kStartStandalone, "/init /idemode"), kStartIdeMode);
    EXPECT_EQ(decideStartMode(kStartStandalone, "/init Project1.vbp"), kStartCommandLineFile);
    // The switches in any case; the name in its own, or a file system that tells cases apart
    // would not find it.
    EXPECT_EQ(commandLineFileName(" \"C:\\Work\\My File.BAS\" /IDEMODE"), "C:\\Work\\My File.BAS");
    EXPECT_EQ(commandLineFileName("/Init Sample/Project1.VBP"), "Sample/Project1.VBP");
    EXPECT_EQ(commandLineFileName("/init"), "");
    EXPECT_EQ(commandLineFileName("/home/initial/IdeModes.bas /idemode"), "/home/initial/IdeModes.bas");
}

class AppStartTest : public AnalysisTest {
protected:
    void SetUp() override {
        AnalysisTest::SetUp();
        currentSession().renew();  // Main does BabInit itself
        setPrinterSystem(&printers);
    }
    void TearDown() override {
        setPrinterSystem(nullptr);
        AnalysisTest::TearDown();
    }
    RecordingPrinterSystem printers{"PDF"};  // the start finds its printer and says nothing of it
};

TEST_F(AppStartTest, MissingFileOnTheCommandLineIsToldAndTheRunEnds) {
    initAppInfo(nullptr);
    EXPECT_EQ(Main("/nonexistent/file.bas"), 0);
    EXPECT_EQ(hlydMain().StartMode, kStartCommandLineFile);
    ASSERT_FALSE(ui.shown.empty());
    EXPECT_EQ(ui.shown.back().text,
              "Halyard cannot print the requested file\n\nThe file does not exist.\n/nonexistent/file.bas\n"
              "Please check your request");
    EXPECT_TRUE(hlydMain().ApplicationEnding);
}

TEST_F(AppStartTest, InitModeStopsBeforeAnyInitialisation) {
    EXPECT_EQ(Main("/init"), 0);
    EXPECT_FALSE(basiclan().BabInitDone);
}

TEST_F(AppStartTest, MissingKeywordFileEndsTheRunAfterItsMessage) {
    cAppInfo saved = theAppInfo();
    theAppInfo().Path = std::filesystem::temp_directory_path().string() + "/no-keywords-here";
    EXPECT_EQ(Main(""), 1);
    theAppInfo() = saved;
    EXPECT_EQ(theDebug().BabStatus, -7);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find("BASICLAN.KEYwas not found in the directory \n"), std::string::npos);
    // Every place looked in is named, the installed share folder among them.
    EXPECT_NE(ui.shown[0].text.find("Looked for:\n" + std::filesystem::temp_directory_path().string() +
                                    "/no-keywords-here/BASICLAN.KEY\n"),
              std::string::npos);
    EXPECT_NE(ui.shown[0].text.find("/share/halyard/BASICLAN.KEY"), std::string::npos);
}

// A Ui whose pending events are the user's: a key on the splash at every look. Should the key go
// unheard, the time runs out after a thousand looks, so that the test fails instead of hanging.
class KeyOnSplashUi : public ScriptedUi {
public:
    void processEvents() override {
        if (!mainWindow().controlsEnabled) sawCommandsWaiting = true;
        endSplashWait();
        if (++looks > 1000) clock->moment += 10;
    }
    FixedClock* clock = nullptr;
    int looks = 0;
    bool sawCommandsWaiting = false;
};

class WindowedStartLogicTest : public ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        installCommandHooks();
        keyUi.clock = &clock;
        setUi(&keyUi);
        WindowedRun& run = windowedRun();
        run.loadMainWindow = [] {};
        run.showSplash = [](const std::string&, const std::string&) {};
        run.showMainWindow = [this] { ++shown; };
        run.closeSplash = [this] { commandsAtClose = mainWindow().controlsEnabled; };
    }
    void TearDown() override {
        windowedRun() = WindowedRun{};
        resetCommandLineJob();
        ConfigDirTest::TearDown();
    }
    KeyOnSplashUi keyUi;
    int shown = 0;
    bool commandsAtClose = true;
};

// The clock stands still, so only the key ends the splash's wait; the commands wait with it, and
// are back when the start is over (the Open dialog was asked for with them enabled).
TEST_F(WindowedStartLogicTest, AKeyOnTheSplashEndsTheWaitAndTheCommandsWaitWithIt) {
    EXPECT_EQ(Main(""), 0);
    EXPECT_LT(keyUi.looks, 100);
    EXPECT_TRUE(keyUi.sawCommandsWaiting);
    EXPECT_FALSE(commandsAtClose);
    EXPECT_TRUE(mainWindow().controlsEnabled);
    EXPECT_EQ(shown, 2);  // shown at once, and brought to the front when ready
    EXPECT_EQ(keyUi.dialogs.size(), 1u);
}

// A file the desktop names (--open) is shown in the window in place of the Open dialog; a relative
// name is taken from the current directory.
TEST_F(WindowedStartLogicTest, AFileTheDesktopNamesOpensInTheWindowWithoutTheOpenDialog) {
    std::ofstream(dir + "/Named.bas", std::ios::binary)
            << "Attribute VB_Name = \"Named\"\r\nSub Shown()\r\nEnd Sub\r\n";
    std::filesystem::path here = std::filesystem::current_path();
    std::filesystem::current_path(dir);
    commandLineJob().options.openFiles = {"Named.bas"};
    EXPECT_EQ(Main(""), 0);
    std::filesystem::current_path(here);
    EXPECT_TRUE(keyUi.dialogs.empty());
    ASSERT_EQ(oFile().Count(), 1);
    EXPECT_EQ(oFile().Item(1).FileName, dir + "/Named.bas");
    EXPECT_EQ(fileTable().wCurrentFile, 1);
}

}  // namespace
}  // namespace hlyd::test
