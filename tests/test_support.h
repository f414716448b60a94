#pragma once
// Shared helpers of the test suites: a scripted Ui, a fixed clock, and the analysis of a text.
#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "analysis/basiclan.h"
#include "platform/clock.h"
#include "platform/ui.h"
#include "printing/printer_systems.h"
#include "printing/recording_printer.h"

namespace hlyd::test {

using Chosen = std::optional<std::vector<std::string>>;

// Answers message boxes from a queue (the default button when it is empty) and keeps every text;
// answers the Open dialog from a queue too (an empty one cancels) and keeps every dialog asked.
class ScriptedUi : public Ui {
public:
    MsgAnswer messageBox(const MessageBoxRequest& request) override;
    std::optional<std::string> saveFileDialog(const FileDialogRequest& request) override {
        dialogs.push_back(request);
        if (whileDialogShows) whileDialogShows();
        return saveAnswer;
    }
    Chosen openFileDialog(const FileDialogRequest& request) override;
    std::optional<int> chooseFromList(const std::string&, const std::vector<std::string>& items) override {
        listed = items;
        return listAnswer;
    }
    void setBusy(bool on) override { busy = on; }
    void errorReport(const std::string& text) override { errorReports.push_back(text); }
    bool openUrl(const std::string& url) override { return hand(url); }
    bool openFile(const std::string& path) override { return hand(path); }
    void setClipboardText(const std::string& text) override { clipboard = text; }
    std::optional<std::string> inputBox(const InputBoxRequest& request) override;
    bool printerDialog(PrinterDialogRequest& request) override {
        printerDialogs.push_back(request);
        return answerPrinterDialog && answerPrinterDialog(request);
    }
    std::deque<MsgAnswer> answers;
    std::vector<MessageBoxRequest> shown;
    std::optional<std::string> saveAnswer;  // nothing: the user cancels
    std::deque<Chosen> openAnswers;
    std::vector<FileDialogRequest> dialogs;
    std::optional<int> listAnswer;
    std::vector<std::string> listed;
    std::function<void()> whileDialogShows;  // runs while a file dialog is up
    bool busy = false;
    std::deque<std::optional<std::string>> inputAnswers;  // an empty queue cancels
    std::vector<InputBoxRequest> inputs;
    std::vector<PrinterDialogRequest> printerDialogs;                // as each was filled in
    std::function<bool(PrinterDialogRequest&)> answerPrinterDialog;  // none: the user cancels
    std::vector<std::string> errorReports;
    std::vector<std::string> opened;  // the URLs and files handed to the desktop
    bool desktopOpens = true;         // false: nothing on the desktop takes them
    std::string clipboard;

private:
    bool hand(const std::string& target) {
        opened.push_back(target);
        return desktopOpens;
    }
};

class FixedClock : public Clock {
public:
    std::time_t now() const override { return moment; }
    std::int64_t ticksMs() const override { return ticks; }
    std::time_t moment = 1700000000;
    std::int64_t ticks = 0;
};

// Every test starts from a fresh run: state reset, scripted Ui, fixed clock, keywords loaded.
class AnalysisTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Analyses the text as a whole file and returns the last status.
    int analyze(const std::string& text, const std::string& dialect = "6");
    const Token& token(std::int32_t n) const { return theSourceTables().Tokens[n]; }
    const Statement& statement(std::int32_t n) const { return theSourceTables().Statements[n]; }
    const Record& record(std::int32_t n) const { return theSourceTables().Records[n]; }
    SourceTables& tables() const { return theSourceTables(); }
    // The texts of the tokens of a record.
    std::vector<std::string> texts(std::int32_t record) const;
    // The number of the first token whose text is `text`, 0 when none.
    std::int32_t find(const std::string& text) const;

    ScriptedUi ui;
    FixedClock clock;
};

// A settings directory of its own ($HLYD_CONFIG_DIR is `dir`), every module's state reset, a
// scripted Ui, a fixed clock and a machine whose one printer is a recording printer named "PDF",
// as the built-in printer that every machine has. The environment and the state are put back afterwards, so that
// the suites of one process do not see each other.
class ConfigDirTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    // Points $HLYD_CONFIG_DIR elsewhere and resets every module, as for a new run.
    void useConfigDir(const std::string& directory);

    std::string dir;  // removed with everything in it at the end
    ScriptedUi ui;
    FixedClock clock;
    RecordingPrinterSystem printers{"PDF"};

private:
    std::string previousConfigDir_;
    bool hadConfigDir_ = false;
};

// A run of the program without a window: a settings directory of its own, the keyword table,
// every module's state fresh, and the settings read as start-up reads them.
class ProgramTest : public ConfigDirTest {
protected:
    void SetUp() override;
    // Writes a source file, appends it to the file table and shows it; returns its position.
    std::int16_t showSource(const std::string& name, const std::string& text);
};

// A program run whose printer in force is a recording printer named "Recorder"; every call it
// hears is kept in `events`.
class RecorderTest : public ProgramTest {
protected:
    void SetUp() override;
    void TearDown() override;
    // Pages with no heading or footing, no history written and no continuous numbering: what a
    // test of the page's own text starts from.
    static void bareHeadings();

    std::vector<PrintEvent> events;
    RecordingPrinterSystem recorders{"Recorder", [this](const PrintEvent& e) { events.push_back(e); }};
};

// TZ is UTC while it lives, so that local times read the same on every machine.
class UtcZone {
public:
    UtcZone();
    ~UtcZone();

private:
    std::optional<std::string> previous_;
};

// "Sub P1 ... End Sub" and so on, each body line numbered so that its text tells where it is.
std::string procedures(int count, int bodyLines);
// The events of one kind, and whether a text was printed exactly so.
std::vector<PrintEvent> eventsOf(const std::vector<PrintEvent>& events, PrintEvent::Kind kind);
bool textPrinted(const std::vector<PrintEvent>& events, const std::string& text);

std::string keywordFilePath();
// What a shell command writes on standard output (the PDF tools read the printer's files back).
std::string run(const std::string& command);
std::string writeTempFile(const std::string& name, const std::string& content);
// HLYD.INI of the settings directory as it stands on disk; empty when there is none.
std::string settingsFileText();

}  // namespace hlyd::test
