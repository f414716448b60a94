#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/app_info.h"
#include "shell/app_start.h"
#include "shell/batch_options.h"
#include "shell/command_line.h"
#include "shell/module_reset.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

namespace fs = std::filesystem;

TEST(BatchOptionsTest, OurOptionsAreTakenOutAndTheRestIsTheClassicCommandLine) {
    BatchOptions o = parseBatchOptions({"--pdf", "out.pdf", "--quiet", "/init", "My", "File.BAS"});
    EXPECT_EQ(o.pdfOut, "out.pdf");
    EXPECT_TRUE(o.quiet);
    EXPECT_EQ(o.commandLine, "/init My File.BAS");
    EXPECT_TRUE(o.error.empty());
    // A name beginning with "-" that is no option of ours is the classic line's to reject.
    EXPECT_EQ(parseBatchOptions({"-x"}).commandLine, "-x");
    EXPECT_EQ(parseBatchOptions({"--printer", "Office", "a.bas"}).printer, "Office");
    EXPECT_FALSE(parseBatchOptions({"--html"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--html", "a.html"}).error.empty());
    EXPECT_TRUE(parseBatchOptions({"--version"}).version);
    EXPECT_TRUE(parseBatchOptions({"--help"}).error.empty());
    // --open is the window's: it names files to show, never files to print.
    EXPECT_EQ(parseBatchOptions({"--open", "a.bas", "--open", "b.vbp"}).openFiles,
              (std::vector<std::string>{"a.bas", "b.vbp"}));
    EXPECT_FALSE(parseBatchOptions({"--open"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--open", "a.bas", "b.bas"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--open", "a.bas", "--pdf", "a.pdf"}).error.empty());
}

// The program started with a name on its command line, without a window, on a recording printer.
class CommandLineRunTest : public ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        initAppInfo(nullptr);
        setPrinterSystem(&recorder);
    }
    void write(const std::string& name, const std::string& text) {
        fs::create_directories(fs::path(dir + "/" + name).parent_path());
        std::ofstream(dir + "/" + name, std::ios::binary) << text;
    }
    static std::string module(const std::string& name, const std::string& proc) {
        return "Attribute VB_Name = \"" + name + "\"\r\nSub " + proc + "()\r\nEnd Sub\r\n";
    }
    // A fresh start each time, as a new process would make.
    int run(const std::string& commandLine, BatchOptions options = {}) {
        events.clear();
        resetModuleState();
        commandLineJob() = CommandLineJob{options, 0, &out, &err};
        EXPECT_EQ(Main(commandLine), 0);
        EXPECT_TRUE(hlydMain().ApplicationEnding);
        return commandLineJob().exitStatus;
    }
    // The procedures printed, in the order they reached the paper.
    std::vector<std::string> printedProcs() const {
        std::vector<std::string> procs;
        for (const PrintEvent& e : events)
            if (e.kind == PrintEvent::Text && e.text.rfind("In", 0) == 0 && (procs.empty() || procs.back() != e.text))
                procs.push_back(e.text);
        return procs;
    }
    std::vector<PrintEvent> events;
    RecordingPrinterSystem recorder{"Recorder", [this](const PrintEvent& e) { events.push_back(e); }};
    std::ostringstream out, err;
};

TEST_F(CommandLineRunTest, AProjectPrintsEveryMemberInItsOwnOrderAndSaysSo) {
    write("Proj/P.vbp", "Type=Exe\r\nModule=ModB; Zeta.bas\r\nModule=ModA; Alpha.bas\r\nName=\"P\"\r\n");
    write("Proj/Zeta.bas", module("ModB", "InZeta"));
    write("Proj/Alpha.bas", module("ModA", "InAlpha"));
    EXPECT_EQ(run(dir + "/Proj/P.vbp"), 0);
    EXPECT_EQ(printedProcs(), (std::vector<std::string>{"InZeta", "InAlpha"}));
    EXPECT_TRUE(out.str().empty());  // ink on paper: no file to name

    // A member that is not there: the others are printed, and the run says which and fails.
    write("Proj/P.vbp", "Type=Exe\r\nModule=ModB; Zeta.bas\r\nModule=ModG; Gone.bas\r\nModule=ModA; Alpha.bas\r\n");
    err.str("");
    EXPECT_EQ(run(dir + "/Proj/P.vbp"), kExitUnreadable);
    EXPECT_EQ(printedProcs(), (std::vector<std::string>{"InZeta", "InAlpha"}));
    EXPECT_NE(err.str().find("printing " + dir + "/Proj/Zeta.bas\nhalyard: printing " + dir + "/Proj/Alpha.bas"),
              std::string::npos);
    EXPECT_NE(err.str().find("skipped Gone.bas of " + dir + "/Proj/P.vbp: not found"), std::string::npos);
}

TEST_F(CommandLineRunTest, ANameWithCapitalsIsFoundWithOrWithoutItsExtension) {
    write("Caps/Mixed.BAS", module("Mixed", "InMixed"));
    EXPECT_EQ(run(dir + "/Caps/Mixed.BAS"), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InMixed"});
    EXPECT_TRUE(ui.shown.empty());
    EXPECT_EQ(run(dir + "/Caps/Mixed"), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InMixed"});
    write("Caps/Lower.cls", module("Lower", "InLower"));
    EXPECT_EQ(run(dir + "/Caps/Lower"), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InLower"});
}

TEST_F(CommandLineRunTest, SwitchesAndWildcardsPrintNothingAndEndWellButAMissingFileFails) {
    write("a.bas", module("A", "InA"));
    for (const std::string& line : {std::string("-x"), std::string("*.bas"), dir + "/a.ba?"}) {
        EXPECT_EQ(run(line), 0) << line;
        EXPECT_TRUE(events.empty()) << line;
    }
    EXPECT_EQ(run(dir + "/Gone.bas"), kExitUnreadable);
    EXPECT_TRUE(events.empty());
}

TEST_F(CommandLineRunTest, HtmlAloneIsExportedNotPrintedAndAnUnwritablePlaceFails) {
    write("M.bas", module("M", "InM"));
    BatchOptions html;
    html.htmlOut = dir + "/M.html";
    ui.saveAnswer = html.htmlOut;  // the windowless Ui answers the save dialog with it
    EXPECT_EQ(run(dir + "/M.bas", html), 0);
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(fs::exists(dir + "/M.html"));
    EXPECT_EQ(out.str(), dir + "/M.html\n");
    // Under a regular file no folder can be made, whoever runs this.
    html.htmlOut = dir + "/M.bas/M.html";
    ui.saveAnswer = html.htmlOut;
    EXPECT_EQ(run(dir + "/M.bas", html), kExitUnwritable);
    EXPECT_NE(err.str().find("cannot write " + dir + "/M.bas/M.html"), std::string::npos);
}

}  // namespace
}  // namespace hlyd::test
