#include <filesystem>
#include <fstream>

#include "files/main_window_model.h"
#include "shell/app_start.h"
#include "shell/help_commands.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "files/command_ids.h"

namespace hlyd::test {
namespace {

class HelpCommandsTest : public ProgramTest {
protected:
    bool enabled(const std::string& name) { return mainWindow().command(name).enabled; }
};

TEST_F(HelpCommandsTest, WithoutItsPagesTheHelpIsSwitchedOffAndTheButtonSaysWhy) {
    hlydMain().HelpFile = dir + "/help/index.html";
    sbSetToolBar();
    for (const char* name : {kMnuHelContents, kMnuHelSearch, kMnuHelHelp, kTbrHelp})
        EXPECT_FALSE(enabled(name)) << name;
    EXPECT_EQ(mainWindow().command(kTbrHelp).tip, "Not available - Help file Missing");
    EXPECT_TRUE(enabled(kMnuHelAbout));

    std::filesystem::create_directories(dir + "/help");
    std::ofstream(dir + "/help/index.html") << "<html></html>";
    HlydMSEnableHLYDControls();
    for (const char* name : {kMnuHelContents, kMnuHelSearch, kMnuHelHelp, kTbrHelp}) EXPECT_TRUE(enabled(name)) << name;
    EXPECT_EQ(mainWindow().command(kTbrHelp).tip, "Help");
}

TEST_F(HelpCommandsTest, EachHelpCommandOpensItsPageBesideTheIndex) {
    hlydMain().HelpFile = dir + "/help/index.html";
    mnuHelContents_Click();
    mnuHelSearch_Click();
    mnuHelHelp_Click();
    std::vector<std::string> pages;
    for (const std::string& opened : ui.opened)
        pages.push_back(std::filesystem::path(opened).lexically_relative(dir).generic_string());
    EXPECT_EQ(pages, (std::vector<std::string>{"help/index.html", "help/topics.html", "help/using-help.html"}));
    EXPECT_TRUE(ui.shown.empty());

    ui.desktopOpens = false;  // no browser: the user is told where the page is
    mnuHelContents_Click();
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find(dir + "/help/index.html"), std::string::npos);
}

}  // namespace
}  // namespace hlyd::test
