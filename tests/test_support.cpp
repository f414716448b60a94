#include "test_support.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "display/connectors.h"
#include "display/font_metrics.h"
#include "display/screen_emitter.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/navigation.h"
#include "files/project_file.h"
#include "platform/session.h"
#include "printing/printer_start.h"
#include "settings/page_settings.h"
#include "settings/profile_file.h"
#include "settings/settings_store.h"
#include "shell/session.h"

namespace hlyd::test {

// The runner's main is the test framework's, so the program's Session comes in as the runner
// starts; a test that wants a Session of its own makes one.
[[maybe_unused]] static const bool programSessionInstalled = (installProgramSession(), true);

MsgAnswer ScriptedUi::messageBox(const MessageBoxRequest& request) {
    shown.push_back(request);
    if (answers.empty()) return defaultAnswer(request);
    MsgAnswer a = answers.front();
    answers.pop_front();
    return a;
}

Chosen ScriptedUi::openFileDialog(const FileDialogRequest& request) {
    dialogs.push_back(request);
    if (whileDialogShows) whileDialogShows();
    if (openAnswers.empty()) return std::nullopt;
    Chosen a = openAnswers.front();
    openAnswers.pop_front();
    return a;
}

std::optional<std::string> ScriptedUi::inputBox(const InputBoxRequest& request) {
    inputs.push_back(request);
    if (inputAnswers.empty()) return std::nullopt;
    std::optional<std::string> a = inputAnswers.front();
    inputAnswers.pop_front();
    return a;
}

std::string keywordFilePath() { return std::string(HLYD_SOURCE_DIR) + "/data/BASICLAN.KEY"; }

std::string writeTempFile(const std::string& name, const std::string& content) {
    // One directory per process: CTest runs the tests of a suite in parallel processes.
    std::filesystem::path dir = std::filesystem::temp_directory_path() / ("hlyd-tests-" + std::to_string(::getpid()));
    std::filesystem::path path = dir / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path.string();
}

void ConfigDirTest::SetUp() {
    static int counter = 0;
    const char* previous = std::getenv("HLYD_CONFIG_DIR");
    hadConfigDir_ = previous != nullptr;
    previousConfigDir_ = previous ? previous : "";
    dir = (std::filesystem::temp_directory_path() /
           ("hlyd-cfg-" + std::to_string(::getpid()) + "-" + std::to_string(++counter)))
                  .string();
    std::filesystem::create_directories(dir);
    useConfigDir(dir);
    setUi(&ui);
    setClock(&clock);
    setPrinterSystem(&printers);
}

void ConfigDirTest::useConfigDir(const std::string& directory) {
    setenv("HLYD_CONFIG_DIR", directory.c_str(), 1);
    currentSession().renew();
}

void ConfigDirTest::TearDown() {
    if (hadConfigDir_) setenv("HLYD_CONFIG_DIR", previousConfigDir_.c_str(), 1);
    else unsetenv("HLYD_CONFIG_DIR");
    setUi(nullptr);
    setClock(nullptr);
    setPrinterSystem(nullptr);
    currentSession().renew();
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
}

void ProgramTest::SetUp() {
    ConfigDirTest::SetUp();
    BabInitFrom(keywordFilePath());
    loadSettingsAtStartup();
}

void RecorderTest::SetUp() {
    ProgramTest::SetUp();
    hlydSettings().CurrentPrinter = "Recorder";
    setPrinterSystem(&recorders);
    // The print tests count in the twips of 12-point text: 144 a character, 288 a line.
    for (int e = 1; e <= kElementCount; ++e) displayAttributes().Elements[e].slot[kPrint].Font.Size = 12;
    // and from the margins of a bound listing: an inch at the left, half inches elsewhere.
    pageSettings().Margins = {720, 1440, 720, 720};
    InitPrinter();
}

void RecorderTest::bareHeadings() {
    HlydSettings& s = hlydSettings();
    s.HeadingLeft = s.HeadingCenter = s.HeadingRight = "";
    s.FootingLeft = s.FootingCenter = s.FootingRight = "";
    s.SaveHYInfo = false;
    s.PrintContinuous = false;
}

void RecorderTest::TearDown() {
    setPrinterSystem(nullptr);
    ProgramTest::TearDown();
}

std::int16_t ProgramTest::showSource(const std::string& name, const std::string& text) {
    oFile().Add({writeTempFile(name, text), kFileSource, false, 0, 0});
    auto which = static_cast<std::int16_t>(oFile().Count());
    HlydFLProcessSelectedFile(which);
    return which;
}

UtcZone::UtcZone() {
    if (const char* tz = std::getenv("TZ")) previous_ = tz;
    setenv("TZ", "UTC", 1);
    tzset();
}

UtcZone::~UtcZone() {
    if (previous_) setenv("TZ", previous_->c_str(), 1);
    else unsetenv("TZ");
    tzset();
}

void AnalysisTest::SetUp() {
    setUi(&ui);
    setClock(&clock);
    currentSession().renew();
    BabInitFrom(keywordFilePath());
}

void AnalysisTest::TearDown() {
    setUi(nullptr);
    setClock(nullptr);
    currentSession().renew();
}

int AnalysisTest::analyze(const std::string& text, const std::string& dialect) {
    SourceFile file;
    file.openText(text);
    BabInitFile(theSourceTables(), dialect);
    for (int guard = 0; guard < 10000000; ++guard) {
        BabParseRecord(file, theSourceTables());
        int status = theDebug().BabStatus;
        if (status == 11 || status == 4) return status;
    }
    ADD_FAILURE() << "analysis did not end";
    return -1;
}

std::vector<std::string> AnalysisTest::texts(std::int32_t r) const {
    std::vector<std::string> out;
    const Record& rec = record(r);
    for (std::int32_t i = rec.FirstT; i >= 1 && i <= rec.LastT; ++i) out.emplace_back(token(i).text());
    return out;
}

std::int32_t AnalysisTest::find(const std::string& text) const {
    for (std::int32_t i = 1; i <= tables().TokenCount; ++i)
        if (token(i).text() == text) return i;
    return 0;
}

std::string procedures(int count, int bodyLines) {
    std::string text;
    for (int p = 1; p <= count; ++p) {
        text += "Sub P" + std::to_string(p) + "()\n";
        for (int l = 1; l <= bodyLines; ++l) text += "X" + std::to_string(p) + "_" + std::to_string(l) + " = 1\n";
        text += "End Sub\n";
    }
    return text;
}

std::vector<PrintEvent> eventsOf(const std::vector<PrintEvent>& events, PrintEvent::Kind kind) {
    std::vector<PrintEvent> out;
    for (const PrintEvent& e : events)
        if (e.kind == kind) out.push_back(e);
    return out;
}

bool textPrinted(const std::vector<PrintEvent>& events, const std::string& text) {
    for (const PrintEvent& e : events)
        if (e.kind == PrintEvent::Text && e.text == text) return true;
    return false;
}

std::string settingsFileText() {
    std::ifstream in(std::filesystem::path(settingsDirectory()) / kSettingsFileName, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string run(const std::string& command) {
    std::string out;
    if (FILE* pipe = ::popen(command.c_str(), "r")) {
        char buffer[4096];
        for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;) out.append(buffer, n);
        ::pclose(pipe);
    }
    return out;
}

}  // namespace hlyd::test
