#include <filesystem>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "shell/app_start.h"
#include "shell/module_reset.h"
#include "shell/start_mode.h"
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
    EXPECT_EQ(commandLineFileName(" \"C:\\Work\\My File.BAS\" /idemode"), "c:\\work\\my file.bas");
    EXPECT_EQ(commandLineFileName("/init"), "");
}

class AppStartTest : public AnalysisTest {
protected:
    void SetUp() override {
        AnalysisTest::SetUp();
        resetModuleState();  // Main does BabInit itself
    }
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
}

}  // namespace
}  // namespace hlyd::test
