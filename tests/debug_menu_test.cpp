// The Debug menu: its items in the window model, the switches they flip with their check marks,
// and the log file asked for, opened, appended to and closed.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "files/main_window_model.h"
#include "settings/settings_store.h"
#include "shell/debug_menu.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

class DebugMenuTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        hlydSettings().DebugMenu = true;
        sbSetToolBar();
    }
    static void click(const std::string& name) {
        for (const DebugMenuItem& item : debugMenuItems())
            if (item.name == name) return mnuDebug_Click(item);
        ADD_FAILURE() << "no item " << name;
    }
    static CommandState& cmd(const std::string& name) { return mainWindow().command(name); }
    static std::string contents(const std::string& path) {
        std::ifstream in(path);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }
};

TEST_F(DebugMenuTest, EveryToggleFlipsItsSwitchAndItsCheckMark) {
    EXPECT_TRUE(cmd(kMnuDebug).visible);
    ASSERT_EQ(debugMenuItems().size(), 10u);
    const std::vector<std::pair<std::string, bool cDebug::*>> toggles{
            {kMnuDebugDisableErrorTraps, &cDebug::DontTrapErrors},
            {kMnuDebugDisableFixDataErrors, &cDebug::DontFixDataErrors},
            {kMnuDebugTraceApp, &cDebug::TraceApplication},
            {kMnuDebugLogEvents, &cDebug::TraceEvents},
            {kMnuDebugMouseEvents, &cDebug::TraceMouseMove},
            {kMnuDebugLogClasses, &cDebug::TraceClasses},
            {kMnuDebugLogTracePackages, &cDebug::TracePackages}};
    for (const auto& [name, flag] : toggles) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(cmd(name).caption.empty());
        EXPECT_FALSE(cmd(name).checked);
        click(name);
        EXPECT_TRUE(theDebug().*flag);
        EXPECT_TRUE(cmd(name).checked);
        click(name);
        EXPECT_FALSE(theDebug().*flag);
        EXPECT_FALSE(cmd(name).checked);
    }
}

TEST_F(DebugMenuTest, LogFileIsAskedForOpenedAppendedAndClosed) {
    theLog().setLogFileName("");
    const std::string path = (fs::path(dir) / "chosen.log").string();

    // Cancelled: nothing opens.
    click(kMnuDebugLogOpen);
    ASSERT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(ui.dialogs[0].title, "Log File");
    EXPECT_EQ(ui.dialogs[0].filter, "All Files|*.*|Log Files|*.LOG");
    EXPECT_EQ(fs::path(ui.dialogs[0].directory), fs::path(dir));  // the settings directory
    EXPECT_EQ(ui.dialogs[0].fileName, "DB_HLYD.LOG");
    EXPECT_FALSE(theLog().isOpen());

    ui.saveAnswer = path;
    click(kMnuDebugLogOpen);
    ASSERT_TRUE(theLog().isOpen());
    click(kMnuDebugDisableErrorTraps);
    click(kMnuDebugLogClose);
    EXPECT_FALSE(theLog().isOpen());
    std::string created = contents(path);
    EXPECT_NE(created.find("Logfile " + path + " Created"), std::string::npos);
    EXPECT_NE(created.find(" DontTrapErrors=True"), std::string::npos);

    // Append starts from the log's own name and keeps what the file holds.
    ui.openAnswers.push_back(std::vector<std::string>{path});
    click(kMnuDebugOpenAppendLog);
    ASSERT_EQ(ui.dialogs.size(), 3u);
    EXPECT_EQ(ui.dialogs[2].fileName, "chosen.log");
    EXPECT_EQ(fs::path(ui.dialogs[2].directory), fs::path(dir));
    ASSERT_TRUE(theLog().isOpen());
    click(kMnuDebugDisableErrorTraps);
    click(kMnuDebugLogClose);
    std::string appended = contents(path);
    EXPECT_EQ(appended.rfind(created, 0), 0u);
    EXPECT_NE(appended.find(" DontTrapErrors=False", created.size()), std::string::npos);
}

// A log chosen over a file of the user's is refused with a message, and the file stays as it was.
TEST_F(DebugMenuTest, ALogOverAFileOfTheUsersIsRefused) {
    for (const char* name : {"Module1.bas", "notes.txt"}) {
        SCOPED_TRACE(name);
        const std::string path = (fs::path(dir) / name).string();
        std::ofstream(path, std::ios::binary) << "Attribute VB_Name = \"Module1\"\r\n";
        ui.saveAnswer = path;
        ui.shown.clear();
        click(kMnuDebugLogOpen);
        EXPECT_FALSE(theLog().isOpen());
        ASSERT_EQ(ui.shown.size(), 1u);
        EXPECT_NE(ui.shown[0].text.find("will not write the log file " + path + " named by the Log File dialog"),
                  std::string::npos)
                << ui.shown[0].text;
        EXPECT_EQ(contents(path), "Attribute VB_Name = \"Module1\"\r\n");
    }
}

}  // namespace
}  // namespace hlyd
