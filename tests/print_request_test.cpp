// The print command from its dialog to the paper of the recording printer: the dialog's checks,
// the choices it turns into a run, the status dialog's Cancel, the window fenced while the run
// goes on, and the file a PDF printer writes to.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/print_history.h"
#include "shell/print_dialog.h"
#include "printing/print_request.h"
#include "printing/print_state.h"
#include "printing/print_status.h"
#include "printing/printer_start.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"
#include "models/select_proc_model.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"
#include "shell/print_commands.h"
#include "shell/window_commands.h"
#include "test_support.h"
#include "test_views.h"
#include "files/command_ids.h"

namespace hlyd {
namespace {

// Where each job was to be written, and whether it was kept or dropped at its end.
struct JobLog {
    std::vector<std::string> paths;
    std::vector<bool> kept;
};

class FileRecorder : public RecordingPrinter {
public:
    FileRecorder(std::string name, Sink sink, JobLog& jobs)
        : RecordingPrinter(std::move(name), std::move(sink)), jobs_(jobs) {}
    bool beginJob(const std::string& outputPath) override {
        jobs_.paths.push_back(outputPath);
        return true;
    }
    bool endJob(bool keep) override {
        jobs_.kept.push_back(keep);
        return keep;
    }

private:
    JobLog& jobs_;
};

class FileRecorderSystem : public RecordingPrinterSystem {
public:
    FileRecorderSystem(const std::string& name, RecordingPrinter::Sink sink, JobLog& jobs)
        : RecordingPrinterSystem(name, sink), jobs_(jobs) {}
    std::unique_ptr<Printer> open(const std::string& wanted) override {
        if (wanted != name()) return nullptr;
        return std::make_unique<FileRecorder>(name(), sink(), jobs_);
    }

private:
    JobLog& jobs_;
};

using test::procedures;

class PrintRequestTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        HlydSettings& s = hlydSettings();
        s.HeadingLeft = s.HeadingCenter = s.HeadingRight = "";
        s.FootingLeft = s.FootingCenter = s.FootingRight = "";
        s.SaveHYInfo = false;
        s.TableOfContents = false;
        s.ProcContentsPrint = false;
        s.PrintContinuous = false;
        usePrinter("Recorder");
        installCommandHooks();
    }
    void TearDown() override {
        setPrinterSystem(nullptr);
        ProgramTest::TearDown();
    }
    void usePrinter(const std::string& name) {
        hlydSettings().CurrentPrinter = name;
        recorders = std::make_unique<FileRecorderSystem>(
                name, [this](const PrintEvent& e) { events.push_back(e); }, jobs);
        setPrinterSystem(recorders.get());
        InitPrinter();
    }
    // The print command with a dialog whose user does `act` and then presses OK once.
    void printWith(const std::function<void(PrintDialogModel&)>& act) {
        views.printDialog = [act](PrintDialogModel& m) {
            act(m);
            return cmdOK_Click(m);
        };
        events.clear();
        HlydPRProcessPrintRequest(HlydHLYDPrintProcessDialog);
    }
    std::vector<PrintEvent> of(PrintEvent::Kind kind) const { return test::eventsOf(events, kind); }
    bool printed(const std::string& wanted) const { return test::textPrinted(events, wanted); }
    std::int32_t delivered() const { return dynamic_cast<RecordingPrinter*>(currentPrinter())->pagesDelivered(); }
    // Marks the files as printed a minute after they were saved.
    void markAllPrinted() {
        hlydSettings().SaveHYInfo = true;
        clock.moment = std::time(nullptr) + 60;
        for (int i = 1; i <= oFile().Count(); ++i) {
            fileTable().wCurrentFile = static_cast<std::int16_t>(i);
            SaveHYInfo();
        }
    }

    std::unique_ptr<FileRecorderSystem> recorders;
    test::TestViews views;
    std::vector<PrintEvent> events;
    JobLog jobs;
};

TEST_F(PrintRequestTest, OkTellsWhyItRefusesAndTheDialogStaysOpen) {
    showSource("one.bas", procedures(2, 1));
    markAllPrinted();
    PrintDialogModel m;
    fillPrintDialog(m);
    EXPECT_EQ(m.lblPrinter, "Printer: Recorder");
    EXPECT_EQ(m.lblProcs, "Entire file selected.");

    m.chkDontShow = true;
    m.optSelectedProcedures[kSelectProcedures] = true;
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_TRUE(hlydSettings().DoNotShowPrintDialog);  // kept even though OK was refused
    optSelectedProcedures_Click(m, kSelectFiles);
    EXPECT_EQ(m.lblProcs, "Selected Files");
    EXPECT_FALSE(cmdOK_Click(m));
    m.chkAll[1] = true;
    chkAll_Click(m, 1);
    EXPECT_FALSE(m.optSelectedProcedures[kSelectFiles]);
    EXPECT_FALSE(cmdOK_Click(m));
    m.chkCurrent = true;
    chkCurrent_Click(m);
    EXPECT_FALSE(m.chkAll[1]);
    EXPECT_EQ(m.lblProcs, "Current file selected");
    m.txtPageNumberStart = "1a";
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_EQ(m.focus, "txtPageNumberStart");
    m.txtPageNumberStart = "1";
    m.optPageRange = true;
    optPageRange_Click(m);
    EXPECT_TRUE(m.txtPageRangeEnabled);
    m.txtPageRange = {"2", ""};
    EXPECT_FALSE(cmdOK_Click(m));
    EXPECT_EQ(m.focus, "txtPageRange1");
    m.txtPageRange[1] = "3";
    EXPECT_TRUE(cmdOK_Click(m));

    std::vector<std::string> told;
    for (const MessageBoxRequest& r : ui.shown) {
        told.push_back(r.text);
        EXPECT_EQ(r.icon, MsgIcon::Warning);
    }
    EXPECT_EQ(told, (std::vector<std::string>{
                            "You must select procedures to print before Halyard can print",
                            "You must select files to print before Halyard can print",
                            "There are no files that have been changed since last Halyard",
                            "You must define a valid page number before Halyard can print",
                            "You must define a valid page number before Halyard can print",
                    }));
    EXPECT_TRUE(acceptsPageKey('7'));
    EXPECT_FALSE(acceptsPageKey('x'));
}

TEST_F(PrintRequestTest, NewerFilesWithNothingChangedRefuseOkAndPrintNothing) {
    showSource("one.bas", procedures(1, 1));
    showSource("two.bas", procedures(1, 1));
    markAllPrinted();
    int refusals = 0;
    views.printDialog = [&refusals](PrintDialogModel& m) {
        m.chkAll[1] = true;
        chkAll_Click(m, 1);
        refusals += cmdOK_Click(m) ? 0 : 1;
        return false;  // the user gives up
    };
    events.clear();
    HlydPRProcessPrintRequest(HlydHLYDPrintProcessDialog);
    EXPECT_EQ(refusals, 1);
    EXPECT_TRUE(events.empty());
}

TEST_F(PrintRequestTest, AStartingNumberOfFiveIsTheFirstPagesNumber) {
    hlydSettings().PageNumberHow = 2;
    showSource("one.bas", procedures(1, 60));
    printWith([](PrintDialogModel& m) { m.txtPageNumberStart = "5"; });
    std::vector<PrintEvent> pages = of(PrintEvent::PageStart);
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].printed, 5);
    EXPECT_EQ(pages[1].printed, 6);
}

// The pages of a range are the whole job: the printer keeps it, as it keeps any finished print.
TEST_F(PrintRequestTest, ARangeIsAJobThePrinterKeeps) {
    hlydSettings().HeadingLeft = "@page";
    showSource("one.bas", procedures(1, 200));
    printWith([](PrintDialogModel& m) {
        m.optPageRange = true;
        m.txtPageRange = {"2", "3"};
    });
    EXPECT_EQ(delivered(), 2);
    EXPECT_TRUE(printed("2 "));
    EXPECT_TRUE(printed("3 "));
    EXPECT_FALSE(printed("4 "));
    EXPECT_EQ(jobs.kept, std::vector<bool>{true});
}

TEST_F(PrintRequestTest, ARangePastTheEndPrintsNothing) {
    showSource("one.bas", procedures(1, 60));
    printWith([](PrintDialogModel& m) {
        m.optPageRange = true;
        m.txtPageRange = {"5", "9"};
    });
    EXPECT_EQ(delivered(), 0);
    EXPECT_TRUE(of(PrintEvent::EndDoc).empty());
}

TEST_F(PrintRequestTest, NeitherCodeNorFormPrintsOnlyWhatTheContentsNeed) {
    showSource("one.bas", procedures(1, 3));
    showSource("two.bas", procedures(1, 3));
    printWith([](PrintDialogModel& m) {
        m.optView = kViewNeither;
        m.chkTOC = true;
        m.chkProcContents = false;
        m.chkAll[0] = true;
        chkAll_Click(m, 0);
        m.txtHeading = "Draft";
    });
    EXPECT_FALSE(printed("X1_1"));
    EXPECT_FALSE(printed("Sub"));
    EXPECT_TRUE(printed(oFile().Item(1).FileName));
    EXPECT_TRUE(printed(oFile().Item(2).FileName));
    // The choices for one run do not outlive it; the lasting ones are kept.
    EXPECT_FALSE(hlydSettings().TableOfContents);
    EXPECT_FALSE(hlydSettings().ViewCode[kPrint]);
    EXPECT_EQ(iniHandler().ReadString("TableOfContents", "", "General"), "No");
    EXPECT_EQ(iniHandler().ReadString("OptionalHeading", "", "General"), "Draft");
}

TEST_F(PrintRequestTest, CancelBetweenTwoFilesLeavesNoOpenDocument) {
    showSource("one.bas", procedures(1, 3));
    showSource("two.bas", procedures(1, 3));
    HlydFLProcessSelectedFile(1);
    std::string second = oFile().Item(2).FileName;
    views.statusChanged = [second](const std::string& text) {
        if (text.rfind(second, 0) == 0) cmdCancel_Click();
    };
    printWith([](PrintDialogModel& m) {
        m.chkAll[0] = true;
        chkAll_Click(m, 0);
    });
    EXPECT_EQ(printStatusDialog().cmdCancel, "CANCELLED");
    EXPECT_EQ(printState().PrintStatus, kPrintStopped);
    ASSERT_FALSE(events.empty());
    EXPECT_EQ(of(PrintEvent::EndDoc).size(), 1u);  // the first file's document
    EXPECT_EQ(events.back().kind, PrintEvent::KillDoc);
    EXPECT_EQ(jobs.kept, std::vector<bool>{false});  // Cancel drops the whole job
    EXPECT_EQ(fileTable().wCurrentFile, 1);          // the file that was on screen comes back
}

TEST_F(PrintRequestTest, TheWindowIsFencedDuringTheRunAndOpenAfterEvenWhenStopped) {
    showSource("one.bas", procedures(1, 200));
    sbButtonsOpen();
    EXPECT_TRUE(mainWindow().command(kMnuFilPrint).enabled);
    std::vector<bool> enabledDuring;
    std::vector<bool> statusShown;
    ui.answers = {MsgAnswer::Yes};
    views.statusChanged = [&](const std::string&) {
        enabledDuring.push_back(mainWindow().controlsEnabled);
        statusShown.push_back(printStatusDialog().visible);
        if (enabledDuring.size() == 1) stopPrinting();
    };
    views.printDialog = [](PrintDialogModel& m) { return cmdOK_Click(m); };
    mnuFilPrint_Click();
    ASSERT_FALSE(enabledDuring.empty());
    EXPECT_FALSE(enabledDuring.front());
    EXPECT_TRUE(statusShown.front());
    EXPECT_EQ(ui.shown.back().text, "Are you sure you want to stop?");
    EXPECT_EQ(printState().PrintStatus, kPrintStopped);
    EXPECT_TRUE(mainWindow().controlsEnabled);
    EXPECT_FALSE(printStatusDialog().visible);
    EXPECT_TRUE(mainWindow().command(kTbrPrint).enabled);
}

// A stop the user confirmed ends the job at the end of the page in progress, so that every page
// kept is whole, and the window's status says so; the status dialog's Cancel drops the job (see
// above).
TEST_F(PrintRequestTest, AConfirmedStopKeepsThePagesPrintedBeforeIt) {
    showSource("one.bas", procedures(1, 200));
    ui.answers = {MsgAnswer::Yes};
    views.statusChanged = [](const std::string& text) {
        if (text.rfind("Now Printing Page 3", 0) == 0) stopPrinting();
    };
    views.printDialog = [](PrintDialogModel& m) { return cmdOK_Click(m); };
    events.clear();
    mnuFilPrint_Click();
    EXPECT_EQ(jobs.kept, std::vector<bool>{true});
    EXPECT_TRUE(printed("X1_1"));
    EXPECT_TRUE(printed("X1_88"));  // the first line of page 3, where the stop was asked
    EXPECT_EQ(test::eventsOf(events, PrintEvent::PageStart).size(), 3u);
    auto textsOnPage = [this](std::int32_t page) {
        std::vector<PrintEvent> texts = of(PrintEvent::Text);
        return std::count_if(texts.begin(), texts.end(), [page](const PrintEvent& e) { return e.page == page; });
    };
    EXPECT_EQ(textsOnPage(3), textsOnPage(2));  // a whole page, as full as the one before
    EXPECT_EQ(mainWindow().lblStatus, "Printing stopped: the pages printed before the stop are kept.");
}

TEST_F(PrintRequestTest, SelectedProceduresAloneArePrinted) {
    showSource("one.bas", procedures(3, 1));
    views.selectProc = [](SelectProcModel& m) {
        EXPECT_EQ(m.Caption, "Select Procs to Print");
        EXPECT_EQ(m.lblProc, "Procedures");
        cmdAll_Click(m);
        cmdNone_Click(m);
        m.selected[std::find(m.lstProc.begin(), m.lstProc.end(), "P2") - m.lstProc.begin()] = true;
        return true;
    };
    std::string line;
    printWith([&line](PrintDialogModel& m) {
        optSelectedProcedures_Click(m, kSelectProcedures);
        EXPECT_EQ(HlydHLYDPrintSelectProc(m, false), 1);
        line = m.lblProcs;
    });
    EXPECT_EQ(line, "1 Procs selected.");
    EXPECT_TRUE(printed("X2_1"));
    EXPECT_FALSE(printed("X1_1"));
    EXPECT_FALSE(printed("X3_1"));
}

TEST_F(PrintRequestTest, PrintThisProcedurePrintsTheProcedureShown) {
    showSource("one.bas", procedures(3, 1));
    auto shown = std::find_if(yProc().begin(), yProc().end(), [](const ProcEntry& e) { return e.Name == "P3"; });
    ASSERT_NE(shown, yProc().end());
    mainWindow().cboProc.ListIndex = shown->ListIndex;
    sbButtonsOpen();
    EXPECT_TRUE(mainWindow().command(kTbrPrintThisProcedure).enabled);
    events.clear();
    tbrPrintThisProcedure_Click();
    EXPECT_TRUE(printed("X3_1"));
    EXPECT_FALSE(printed("X1_1"));
}

TEST_F(PrintRequestTest, SelectedFilesAreTheOnlyOnesPrinted) {
    showSource("one.bas", procedures(1, 1));
    showSource("two.bas", "Sub Q()\nY = 1\nEnd Sub\n");
    views.selectProc = [](SelectProcModel& m) {
        EXPECT_EQ(m.Caption, "Select Files to Print");
        EXPECT_EQ(m.lblProc, "Files");
        m.selected = {false, true};
        return true;
    };
    std::string line;
    printWith([&line](PrintDialogModel& m) {
        optSelectedProcedures_Click(m, kSelectFiles);
        HlydHLYDPrintSelectProc(m, true);
        line = m.lblProcs;
    });
    EXPECT_EQ(line, "1 Files selected.");
    EXPECT_TRUE(printed("Y"));
    EXPECT_FALSE(printed("X1_1"));
}

TEST_F(PrintRequestTest, NeitherWithTheProcedureTablePrintsTheTableAlone) {
    showSource("one.bas", procedures(2, 1));
    // The table lists the procedures with the pages of the listing printed last.
    printWith([](PrintDialogModel&) {});
    ASSERT_TRUE(printed("X1_1"));
    printWith([](PrintDialogModel& m) {
        m.optView = kViewNeither;
        m.chkProcContents = true;
    });
    EXPECT_FALSE(printed("X1_1"));
    EXPECT_TRUE(printed("P2"));
    EXPECT_FALSE(hlydSettings().ProcContentsPrint);
}

// A printer that takes the pages and then cannot deliver the job, as one that went away does.
class VanishingRecorder : public RecordingPrinter {
public:
    using RecordingPrinter::RecordingPrinter;
    bool endJob(bool) override { return false; }
    std::string jobError() const override { return "The printer is not there."; }
};

class VanishingSystem : public RecordingPrinterSystem {
public:
    using RecordingPrinterSystem::RecordingPrinterSystem;
    std::unique_ptr<Printer> open(const std::string& wanted) override {
        return wanted == name() ? std::make_unique<VanishingRecorder>(name(), sink()) : nullptr;
    }
};

TEST_F(PrintRequestTest, APrinterThatFailsTheJobIsGivenUpUntilSetUpAgain) {
    VanishingSystem vanishing("Recorder", [this](const PrintEvent& e) { events.push_back(e); });
    setPrinterSystem(&vanishing);
    InitPrinter();
    showSource("module.bas", procedures(1, 1));
    ui.shown.clear();
    printWith([](PrintDialogModel&) {});
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text.rfind("A problem has been detected in printing " + oFile().Item(1).FileName +
                                             "\r\nHalyard's Printing functions are disabled.",
                                     0),
              0u);
    EXPECT_FALSE(printState().PrinterValid);
    sbPrintButtonSet();
    EXPECT_FALSE(mainWindow().command(kMnuFilPrint).enabled);
    setPrinterSystem(recorders.get());
}

TEST_F(PrintRequestTest, ThePdfPrinterAsksWhereAndStartsInTheFolderUsedLast) {
    usePrinter("PDF");
    showSource("module.bas", procedures(1, 1));
    ui.saveAnswer = dir + "/out/first.pdf";
    printWith([](PrintDialogModel&) {});
    ASSERT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(ui.dialogs[0].fileName, "module.pdf");
    ASSERT_EQ(jobs.paths.size(), 1u);
    EXPECT_EQ(jobs.paths[0], dir + "/out/first.pdf");
    EXPECT_EQ(hlydSettings().LastPDFLoc, dir + "/out");
    printWith([](PrintDialogModel&) {});
    EXPECT_EQ(ui.dialogs[1].directory, dir + "/out");
    ui.saveAnswer.reset();  // Cancel in the save dialog prints nothing
    printWith([](PrintDialogModel&) {});
    EXPECT_TRUE(events.empty());
}

// The print command refuses, before the first page and with a message naming the file and where
// its name came from, a PDF or a print history that would write over a file of the user's.
TEST_F(PrintRequestTest, AnOutputOverAFileOfTheUsersRefusesTheCommand) {
    usePrinter("PDF");
    showSource("module.bas", procedures(1, 1));
    const std::string source = dir + "/module.bas";
    const std::string notes = dir + "/notes.txt";
    std::ofstream(notes, std::ios::binary) << "the user's notes\n";
    struct Case {
        std::string pdf, history, named;
    };
    for (const Case& c : {Case{source, "", "the Print to PDF dialog"}, Case{notes, "", "the Print to PDF dialog"},
                          Case{dir + "/fine.pdf", source, "SaveHYFile"}}) {
        SCOPED_TRACE(c.pdf + " " + c.history);
        hlydSettings().SaveHYInfo = !c.history.empty();
        hlydSettings().SaveHYFile = c.history;
        ui.saveAnswer = c.pdf;
        ui.shown.clear();
        jobs.paths.clear();
        printWith([](PrintDialogModel&) {});
        EXPECT_TRUE(jobs.paths.empty());
        EXPECT_TRUE(events.empty());
        ASSERT_EQ(ui.shown.size(), 1u);
        EXPECT_NE(ui.shown[0].text.find("will not write"), std::string::npos) << ui.shown[0].text;
        EXPECT_NE(ui.shown[0].text.find(c.named), std::string::npos) << ui.shown[0].text;
    }
    auto contents = [](const std::string& path) {
        std::ostringstream all;
        all << std::ifstream(path, std::ios::binary).rdbuf();
        return all.str();
    };
    EXPECT_EQ(contents(notes), "the user's notes\n");
    EXPECT_EQ(contents(source).find("[Tamarin"), std::string::npos);
}

}  // namespace
}  // namespace hlyd
