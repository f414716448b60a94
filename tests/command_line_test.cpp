// Runs without a window: the options of the command line, the environments that can show the
// window, and what a run prints, exports, refuses or tells (on standard error, with its status).
#include <sys/stat.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <sstream>

#include "base/app_info.h"
#include "files/main_window_model.h"
#include "shell/project_choice.h"
#include "files/project_listing.h"
#include "platform/session.h"
#include "shell/app_start.h"
#include "shell/batch_options.h"
#include "shell/command_line.h"
#include "shell/core_batch_run.h"
#include "settings/window_place.h"
#include "shell/window_display.h"
#include "shell/window_part.h"
#include "test_support.h"
#include "test_views.h"

namespace hlyd::test {
namespace {

namespace fs = std::filesystem;

TEST(BatchOptionsTest, OurOptionsAreTakenOutAndTheRestAreTheFilesInTheirOrder) {
    BatchOptions o = parseBatchOptions({"--pdf", "out.pdf", "--quiet", "/init", "My", "File.BAS"});
    EXPECT_EQ(o.pdfOut, "out.pdf");
    EXPECT_TRUE(o.quiet);
    EXPECT_EQ(o.commandLine, "/init My File.BAS");
    EXPECT_EQ(o.files, (std::vector<std::string>{"My", "File.BAS"}));
    EXPECT_TRUE(o.error.empty());
    EXPECT_EQ(parseBatchOptions({"/IdeMode"}).files, std::vector<std::string>{});
    EXPECT_EQ(parseBatchOptions({"--printer", "Office", "a.bas"}).printer, "Office");
    EXPECT_FALSE(parseBatchOptions({"--html"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--html", "a.html"}).error.empty());
    EXPECT_TRUE(parseBatchOptions({"--version"}).version);
    EXPECT_TRUE(parseBatchOptions({"--help"}).error.empty());
    // A mistyped option is refused by name, wherever it stands; after "--" a name may begin with "-".
    EXPECT_EQ(parseBatchOptions({"--bogus", "file.bas"}).error, "unknown option --bogus");
    EXPECT_EQ(parseBatchOptions({"a.bas", "-x"}).error, "unknown option -x");
    EXPECT_EQ(parseBatchOptions({"-"}).error, "unknown option -");
    EXPECT_EQ(parseBatchOptions({"--", "-x.bas", "--quiet"}).files, (std::vector<std::string>{"-x.bas", "--quiet"}));
    // One HTML document holds one file, project or group.
    EXPECT_FALSE(parseBatchOptions({"--html", "a.html", "a.bas", "b.bas"}).error.empty());
    // --open is the window's: it names files to show, never files to print.
    EXPECT_EQ(parseBatchOptions({"--open", "a.bas", "--open", "b.vbp"}).openFiles,
              (std::vector<std::string>{"a.bas", "b.vbp"}));
    EXPECT_FALSE(parseBatchOptions({"--open"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--open", "a.bas", "b.bas"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--open", "a.bas", "--pdf", "a.pdf"}).error.empty());
    // The cross-reference belongs to a print: with nothing printed it would be dropped unseen.
    EXPECT_TRUE(parseBatchOptions({"--xref", "--pdf", "a.pdf", "a.vbp"}).crossReference);
    EXPECT_TRUE(parseBatchOptions({"--xref", "a.vbp"}).error.empty());
    EXPECT_TRUE(parseBatchOptions({"--xref", "--html", "a.html", "--printer", "P", "a.vbp"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--xref"}).error.empty());
    EXPECT_FALSE(parseBatchOptions({"--xref", "--html", "a.html", "a.vbp"}).error.empty());
}

// Which environments can show the window. Without a display the window system would abort.
struct DisplayCase {
    std::map<std::string, std::string> environment;
    bool windowPossible;
};

void PrintTo(const DisplayCase& c, std::ostream* os) {
    for (const auto& [name, value] : c.environment) *os << name << "=" << value << " ";
    *os << (c.windowPossible ? "window" : "no window");
}

class NoDisplayTest : public ::testing::TestWithParam<DisplayCase> {};

TEST_P(NoDisplayTest, TheWindowIsRefusedWithTheWayToPrintWithoutIt) {
    const std::map<std::string, std::string>& environment = GetParam().environment;
    std::string problem = noDisplayProblem([&environment](const char* name) -> const char* {
        auto found = environment.find(name);
        return found == environment.end() ? nullptr : found->second.c_str();
    });
    EXPECT_EQ(problem.empty(), GetParam().windowPossible);
    if (!problem.empty()) {
        EXPECT_NE(problem.find("--pdf OUT.pdf FILE"), std::string::npos);
    }
}

#if !defined(_WIN32) && !defined(__APPLE__)
INSTANTIATE_TEST_SUITE_P(Environments, NoDisplayTest,
                         ::testing::Values(DisplayCase{{}, false}, DisplayCase{{{"DISPLAY", ""}}, false},
                                           DisplayCase{{{"DISPLAY", ":0"}}, true},
                                           DisplayCase{{{"WAYLAND_DISPLAY", "wayland-0"}}, true},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "offscreen"}}, true},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "minimal"}}, true},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "xcb"}}, false},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "wayland;xcb"}}, false},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "xcb;offscreen"}}, true},
                                           DisplayCase{{{"QT_QPA_PLATFORM", "xcb"}, {"DISPLAY", ":0"}}, true}));
#else
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(NoDisplayTest);
#endif

std::string module(const std::string& name, const std::string& proc) {
    return "Attribute VB_Name = \"" + name + "\"\r\nSub " + proc + "()\r\nEnd Sub\r\n";
}

std::string readAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

// The program started with a name on its command line, without a window, on a recording printer.
class CommandLineRunTest : public ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        initAppInfo(nullptr);
        setPrinterSystem(&recorder);
    }
    std::string write(const std::string& name, const std::string& text) {
        fs::create_directories(fs::path(dir + "/" + name).parent_path());
        std::ofstream(dir + "/" + name, std::ios::binary) << text;
        return dir + "/" + name;
    }
    // A fresh start each time, as a new process would make.
    int run(const std::string& commandLine, BatchOptions options = {}) {
        events.clear();
        err.str("");
        currentSession().renew();
        commandLineJob() = CommandLineJob{options, 0, &out, &err};
        EXPECT_EQ(Main(commandLine), 0);
        EXPECT_TRUE(hlydMain().ApplicationEnding);
        return commandLineJob().exitStatus;
    }
    // The words as the shell hands them over.
    int runWords(const std::vector<std::string>& words) {
        BatchOptions options = parseBatchOptions(words);
        EXPECT_EQ(options.error, "");
        return run(options.commandLine, options);
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

TEST_F(CommandLineRunTest, SeveralFilesAndPatternsPrintAsOneJobInTheOrderGiven) {
    write("b.bas", module("B", "InB"));
    write("a.bas", module("A", "InA"));
    write("c.cls", module("C", "InC"));
    write("Proj/P.vbp", "Type=Exe\r\nModule=ModZ; Z.bas\r\n");
    write("Proj/Z.bas", module("ModZ", "InZ"));
    EXPECT_EQ(runWords({dir + "/b.bas", dir + "/Proj/P.vbp", dir + "/a"}), 0);
    EXPECT_EQ(printedProcs(), (std::vector<std::string>{"InB", "InZ", "InA"}));
    // A pattern stands for the files it matches, by name.
    EXPECT_EQ(runWords({dir + "/?.*"}), 0);
    EXPECT_EQ(printedProcs(), (std::vector<std::string>{"InA", "InB", "InC"}));
    // A name that gives no file is told, and the others print.
    EXPECT_EQ(runWords({dir + "/*.frm", dir + "/Gone.bas", dir + "/a.bas"}), kExitUnreadable);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InA"});
    EXPECT_NE(err.str().find("no file matches " + dir + "/*.frm"), std::string::npos) << err.str();
    ASSERT_FALSE(ui.shown.empty());
    EXPECT_NE(ui.shown.back().text.find("The file does not exist.\n" + dir + "/Gone.bas"), std::string::npos);
    // The classic single name still works when the options carry no files.
    EXPECT_EQ(run(dir + "/a.ba?"), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InA"});
    EXPECT_EQ(run(dir + "/Gone.bas"), kExitUnreadable);
    EXPECT_TRUE(events.empty());
}

// A folder, a FIFO or a device holds no listing: each is refused by name and nothing is written.
TEST_F(CommandLineRunTest, ANameThatIsNoRegularFileIsRefused) {
    write("M.bas", module("M", "InM"));
    fs::create_directories(dir + "/Folder.bas");
    std::vector<std::string> names{dir + "/Folder.bas", "/dev/zero"};
    std::string fifo = dir + "/Pipe.bas";
    if (mkfifo(fifo.c_str(), 0600) == 0) names.push_back(fifo);
    for (const std::string& name : names) {
        BatchOptions html;
        html.htmlOut = dir + "/M.html";
        html.files = {name};
        ui.saveAnswer = html.htmlOut;
        EXPECT_EQ(run(name, html), kExitUnreadable) << name;
        EXPECT_FALSE(fs::exists(html.htmlOut)) << name;
        EXPECT_NE(err.str().find("cannot print " + name + ": "), std::string::npos) << err.str();
        EXPECT_EQ(runWords({name}), kExitUnreadable) << name;
        EXPECT_TRUE(events.empty()) << name;
    }
    // A pattern matches files only, and --html takes one.
    EXPECT_EQ(runWords({dir + "/*.bas"}), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InM"});
    write("N.bas", module("N", "InN"));
    BatchOptions html;
    html.htmlOut = dir + "/M.html";
    html.files = {dir + "/*.bas"};
    EXPECT_EQ(run(dir + "/*.bas", html), kExitUsage);
    EXPECT_FALSE(fs::exists(html.htmlOut));
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

// Which part of the program a command line runs on, in the order main asks: the core alone, the
// print part (the PDF printer without the widgets or the print service), else the window part.
enum class RunsOn { Core, PrintPart, WindowPart };

struct PartCase {
    std::vector<std::string> words;
    RunsOn part;
};

class ProgramPartTest : public ::testing::TestWithParam<PartCase> {};

TEST_P(ProgramPartTest, OnlyWhatARunNeedsIsLoaded) {
    BatchOptions options = parseBatchOptions(GetParam().words);
    ASSERT_EQ(options.error, "");
    RunsOn part = runsOnCoreAlone(options)    ? RunsOn::Core
                  : printsToPdfAlone(options) ? RunsOn::PrintPart
                                              : RunsOn::WindowPart;
    EXPECT_EQ(part, GetParam().part);
}

INSTANTIATE_TEST_SUITE_P(
        CommandLines, ProgramPartTest,
        ::testing::Values(PartCase{{"--html", "a.html", "a.bas"}, RunsOn::Core},
                          PartCase{{"--quiet", "--html", "a.html", "--", "-a.bas"}, RunsOn::Core},
                          PartCase{{"--html", "a.html", "/init", "a.bas"}, RunsOn::Core},
                          PartCase{{"--pdf", "a.pdf", "a.bas"}, RunsOn::PrintPart},
                          PartCase{{"--html", "a.html", "--pdf", "a.pdf", "a.bas"}, RunsOn::PrintPart},
                          PartCase{{"--printer", "PDF", "--quiet", "a.bas"}, RunsOn::PrintPart},
                          // A system printer needs the print service; the settings' printer may be one.
                          PartCase{{"--html", "a.html", "--printer", "Office", "a.bas"}, RunsOn::WindowPart},
                          PartCase{{"--printer", "pdf", "a.bas"}, RunsOn::WindowPart},
                          PartCase{{"a.bas"}, RunsOn::WindowPart}, PartCase{{"--open", "a.bas"}, RunsOn::WindowPart},
                          PartCase{{"/init"}, RunsOn::WindowPart}, PartCase{{}, RunsOn::WindowPart}),
        [](const ::testing::TestParamInfo<PartCase>& info) {
            std::string name = std::to_string(info.index);
            for (const std::string& word : info.param.words) {
                name += '_';
                for (char c : word)
                    if (std::isalnum(static_cast<unsigned char>(c))) name += c;
            }
            return name;
        });

// An export asks the print service nothing: with many printers (or a slow network one) that
// question was most of the run.
TEST_F(CommandLineRunTest, AnHtmlExportOpensNoPrinterAndLeavesTheWindowPlaceAsItWas) {
    write("M.bas", module("M", "InM"));
    ui.saveAnswer = dir + "/M.html";
    EXPECT_EQ(runWords({"--html", dir + "/M.html", dir + "/M.bas"}), 0);
    EXPECT_EQ(recorder.printer(), nullptr);
    EXPECT_TRUE(fs::exists(dir + "/M.html"));
    // The window stood on a second screen the run on the core cannot see: its place, state and
    // bars stay, in an old file that the start rewrites whole as in one it has just written.
    const std::string place = "Screen=40000 2000 9000 7000";
    std::ofstream(dir + "/HLYD.INI") << "[General]\n" << place << "\nWindowState=2\nToolBar=No\n";
    currentSession().renew();
    commandLineJob() = CommandLineJob{{}, 0, &out, &err};
    EXPECT_EQ(runOnCoreAlone(parseBatchOptions({"--html", dir + "/M2.html", dir + "/M.bas"})), 0);
    EXPECT_TRUE(fs::exists(dir + "/M2.html"));
    std::string ini = readAll(dir + "/HLYD.INI");
    EXPECT_NE(ini.find(place), std::string::npos) << ini;
    EXPECT_NE(ini.find("WindowState=2"), std::string::npos);
    EXPECT_NE(ini.find("ToolBar=No"), std::string::npos);
    EXPECT_FALSE(screensUnknown());
}

// A printer named on the command line is opened by its name: the print service is never asked for
// its list or its default, which cost a run to a file most of its start.
TEST_F(CommandLineRunTest, APrinterNamedForTheRunIsOpenedWithoutAskingForTheSystemsPrinters) {
    struct CountingPrinterSystem : RecordingPrinterSystem {
        using RecordingPrinterSystem::RecordingPrinterSystem;
        std::vector<std::string> printerNames() const override {
            ++asked;
            return RecordingPrinterSystem::printerNames();
        }
        std::string defaultPrinterName() const override {
            ++asked;
            return RecordingPrinterSystem::defaultPrinterName();
        }
        mutable int asked = 0;
    } counting{"Recorder", [this](const PrintEvent& e) { events.push_back(e); }};
    setPrinterSystem(&counting);
    write("M.bas", module("M", "InM"));
    write("HLYD.INI", "[General]\nCurrentPrinter=Elsewhere\n");
    EXPECT_EQ(runWords({"--printer", "Recorder", dir + "/M.bas"}), 0);
    EXPECT_EQ(printedProcs(), std::vector<std::string>{"InM"});
    EXPECT_EQ(counting.asked, 0);
    setPrinterSystem(&recorder);
}

// A procedure before line 4 and one after it; line 4 is more than the reader takes.
std::string longLineModule() {
    std::string tooLong = "x = \"" + std::string(3000, 'a') + "\"\r\n";
    return module("Long", "BeforeTheCut") + tooLong + "Sub AfterTheCut()\r\nEnd Sub\r\n";
}

// 1001 lines of 500 tokens after the procedure: reading stops on the line that passes 500,000.
std::string tooManyTokensModule() {
    std::string line;
    for (int i = 0; i < 500; ++i) line += "v ";
    std::string text = module("Big", "BeforeTheCut");
    for (int n = 0; n < 1001; ++n) text += line + "\r\n";
    return text + "Sub AfterTheCut()\r\nEnd Sub\r\n";
}

struct CutCase {
    const char* name;
    std::string (*text)();
    const char* reason;
};

void PrintTo(const CutCase& c, std::ostream* os) { *os << c.name; }

class CutFileTest : public CommandLineRunTest, public ::testing::WithParamInterface<CutCase> {
protected:
    static std::size_t occurrences(const std::string& text, const std::string& part) {
        std::size_t count = 0;
        for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
        return count;
    }
};

// The file is printed, or exported, up to the line where reading stopped; the run says where and
// why, once however often the file is read, and ends with status 1.
TEST_P(CutFileTest, AFileCutAtALimitOfTheReaderIsToldAndEndsWithStatusOne) {
    std::string source = write(std::string(GetParam().name) + ".bas", GetParam().text());
    std::string told = source + ": reading stopped at line ";
    for (bool html : {false, true}) {
        BatchOptions options;
        if (html) options.htmlOut = dir + "/out.html";
        ui.saveAnswer = options.htmlOut;
        EXPECT_EQ(run(source, options), kExitLeftOut) << html;
        EXPECT_EQ(occurrences(err.str(), told), 1u) << err.str();
        EXPECT_NE(err.str().find(std::string("(") + GetParam().reason), std::string::npos) << err.str();
        std::string document = html ? readAll(dir + "/out.html") : "";
        for (const char* proc : {"BeforeTheCut", "AfterTheCut"}) {
            bool printed = textPrinted(events, proc) || document.find(proc) != std::string::npos;
            EXPECT_EQ(printed, proc == std::string("BeforeTheCut")) << proc << (html ? " in HTML" : " printed");
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, CutFileTest,
                         ::testing::Values(CutCase{"LongLine", longLineModule, "Record too big"},
                                           CutCase{"TooManyTokens", tooManyTokensModule, "Too many tokens"}),
                         [](const auto& info) { return std::string(info.param.name); });

// The 999 lines a project may list are the Project File dialog's bound: a run without it prints
// every member. In the window the dialog lists what it can, and the status says what it cannot.
TEST_F(CommandLineRunTest, EveryMemberOfAProjectOfManyLinesPrintsAndTheDialogSaysWhatItCannotList) {
    std::string project;
    for (int m = 1; m <= 200; ++m) {
        std::string name = "M" + std::to_string(m);
        project += "Module=" + name + "; " + name + ".bas\r\n";
        for (int other = 0; other < 9; ++other) project += "Title=\"Many\"\r\n";
        write("Many/" + name + ".bas", module(name, "In" + name));
    }
    std::string vbp = write("Many/Many.vbp", project);
    EXPECT_EQ(run(vbp), 0) << err.str();
    std::vector<std::string> procs = printedProcs();
    ASSERT_EQ(procs.size(), 200u);
    EXPECT_EQ(procs.back(), "InM200");

    currentSession().renew();
    BabInitFrom(keywordFilePath());
    std::size_t offered = 0;
    test::TestViews views;
    views.projectFile = [&offered](ProjectFileModel& m) {
        for (int n = 1; n <= m.Outline.NodeCount(); ++n) offered += m.Outline.Node(n).IsFile ? 1 : 0;
        return false;
    };
    PFParseFile({cFileDesc{vbp, kFileProject, true, 0, 0}});
    EXPECT_EQ(offered, 100u);  // lines 1 to 999
    EXPECT_EQ(mainWindow().lblStatus, vbp + ": the Project File dialog lists the first 999 of its 2000 lines; "
                                            "100 members named after them cannot be chosen here");
    resetProjectFileDialog();
}

TEST_F(CommandLineRunTest, MembersNotFoundStandInTheWindowsStatus) {
    write("Gone/There.bas", module("There", "InThere"));
    std::string vbp = write("Gone/P.vbp",
                            "Module=There; There.bas\r\nModule=A; A.bas\r\nModule=B; B.bas\r\n"
                            "Module=C; C.bas\r\nModule=D; D.bas\r\n");
    BabInitFrom(keywordFilePath());
    test::TestViews views;
    views.projectFile = [](ProjectFileModel& m) { return cmdOK_Click(m); };
    PFParseFile({cFileDesc{vbp, kFileProject, true, 0, 0}});
    EXPECT_EQ(mainWindow().lblStatus, vbp + ": 4 members were not found and left out (A.bas, B.bas, C.bas, ...)");
    resetProjectFileDialog();
}

}  // namespace
}  // namespace hlyd::test
