#include "files/print_history.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "base/hlyd_error.h"
#include "files/file_table.h"
#include "settings/ini_handler.h"
#include "settings/profile_file.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

namespace fs = std::filesystem;

// Moments in UTC; the fixture runs with TZ=UTC so that they read the same on every machine.
constexpr std::time_t kSaved = 1678007224;     // 2023-03-05 09:07:04
constexpr std::time_t kMidnight = 1704153600;  // 2024-01-02 00:00:00

class PrintHistoryTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        dir_ = dir;
        hlydSettings().SaveHYInfo = true;
        hlydSettings().SaveHYFile = (dir_ / "TMRHIST.TMR").string();
        source_ = (dir_ / "Module1.bas").string();
        std::ofstream(source_) << "Attribute VB_Name = \"Module1\"\n";
        setMtime(kSaved);
        oFile().Add(cFileDesc{source_});
        fileTable().wCurrentFile = 1;
    }

    void setMtime(std::time_t t) {
        auto sys = std::chrono::system_clock::from_time_t(t);
        fs::last_write_time(source_, std::chrono::file_clock::from_sys(sys));
    }
    void printAt(std::time_t t) {
        clock.moment = t;
        SaveHYInfo();
    }
    std::string entry() {
        cINIHandler h;
        h.setINIFileName(hlydSettings().SaveHYFile);
        return h.ReadString(source_, "", kHistorySection);
    }
    void writeEntry(const std::string& value) {
        cINIHandler h;
        h.setINIFileName(hlydSettings().SaveHYFile);
        h.WriteString(source_, value, std::string(kHistorySection));
    }
    std::string historyText() {
        std::ifstream in(hlydSettings().SaveHYFile, std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
    // Both forms of the test must give the same answer on every normal entry.
    void expectNewer(bool newer) {
        EXPECT_EQ(fbIsNewer(source_), newer);
        EXPECT_EQ(bIsNewer(source_), newer);
    }

    fs::path dir_;
    std::string source_;
    test::UtcZone utc_;
};

TEST_F(PrintHistoryTest, EntriesWithoutAReadablePrintingTimeAreNewer) {
    expectNewer(true);  // never printed
    for (const char* e :
         {"3/05/2023 9:07:04 AM", "3/05/2023 9:07:04 AM|", "3/05/2023 9:07:04 AM|02/30/2023 9:07:04 AM"}) {
        writeEntry(e);
        expectNewer(true);
    }
}

TEST_F(PrintHistoryTest, PrintedFilesAreNewerOnlyWhenSavedAfterPrinting) {
    printAt(kSaved);  // the same second as the save
    expectNewer(false);
    printAt(kSaved + 3600);
    expectNewer(false);
    setMtime(kSaved + 3601);
    expectNewer(true);
}

TEST_F(PrintHistoryTest, EntryHasBothTimesInTheirFormatsAndIsOverwrittenInPlace) {
    cINIHandler sibling;
    sibling.setINIFileName(hlydSettings().SaveHYFile);
    sibling.WriteString("other.frm", "kept", std::string(kSiblingHistorySection));

    printAt(kSaved + 100);
    printAt(1700000000);  // 2023-11-14 22:13:20
    const AmPmSymbols& s = localeAmPm();
    std::string line = source_ + "=3/05/2023 9:07:04 " + s.am + "|11/14/2023 10:13:20 " + s.pm + "\n";
    std::string text = historyText();
    EXPECT_NE(text.find("[Tamarin Halyard for Visual Basic]\n" + line), std::string::npos) << text;
    EXPECT_EQ(text.find(source_), text.rfind(source_)) << "one entry per file";
    EXPECT_NE(text.find("[Tamarin Glosser for Visual Basic]\nother.frm=kept\n"), std::string::npos) << text;
}

TEST_F(PrintHistoryTest, NoHistoryFlagAndSettingOffLeaveTheHistoryAlone) {
    hlydSettings().SaveHYInfo = false;
    printAt(kSaved + 60);
    EXPECT_FALSE(fs::exists(hlydSettings().SaveHYFile));
    expectNewer(true);

    hlydSettings().SaveHYInfo = true;
    printAt(kSaved + 60);
    std::string before = entry();
    setMtime(kSaved + 120);
    clock.moment = kSaved + 180;
    SaveHYInfo(true);
    EXPECT_EQ(entry(), before);
    expectNewer(true);  // and stays so at the next printing
}

TEST_F(PrintHistoryTest, HistoryIsReadAfreshForEveryQuery) {
    printAt(kSaved + 60);
    expectNewer(false);
    // Another copy of the program rewrites the file between two of our queries.
    std::ofstream(hlydSettings().SaveHYFile, std::ios::trunc)
            << "[Tamarin Halyard for Visual Basic]\n"
            << source_ << "=3/05/2023 9:07:04 AM|03/05/2023 9:00:00 AM\n";
    expectNewer(true);
}

TEST_F(PrintHistoryTest, VanishedFileRaisesFileNotFoundWhenItsTimeIsNeeded) {
    fs::remove(source_);
    EXPECT_TRUE(fbIsNewer(source_));  // nothing to compare: the time is never asked
    try {
        bIsNewer(source_);
        ADD_FAILURE() << "bIsNewer asks the time first";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, 53);
    }
    writeEntry("3/05/2023 9:07:04 AM|03/05/2023 9:07:04 AM");
    try {
        fbIsNewer(source_);
        ADD_FAILURE() << "fbIsNewer must raise";
    } catch (const HlydError& e) {
        EXPECT_EQ(e.Number, 53);
    }
}

TEST_F(PrintHistoryTest, DatesFormatAndParseInTwelveHourClock) {
    AmPmSymbols plain{"AM", "PM"};
    EXPECT_EQ(formatFileTime(kMidnight, plain), "1/02/2024 12:00:00 AM");
    EXPECT_EQ(formatPrintTime(kMidnight + 12 * 3600 + 5, plain), "01/02/2024 12:00:05 PM");
    EXPECT_EQ(formatPrintTime(kMidnight + 13 * 3600, {"vorm.", "nachm."}), "01/02/2024 1:00:00 nachm.");

    EXPECT_EQ(parseHistoryDate("1/02/2024 12:00:00 AM", plain), kMidnight);
    EXPECT_EQ(parseHistoryDate("01/2/2024 12:30 pm", plain), kMidnight + 12 * 3600 + 1800);
    EXPECT_EQ(parseHistoryDate(" 1/2/2024 1:00:09 PM ", plain), kMidnight + 13 * 3600 + 9);
    EXPECT_EQ(parseHistoryDate("1/02/2024 13:00:00", plain), kMidnight + 13 * 3600);
    EXPECT_EQ(parseHistoryDate("1/02/2024 1:00:00 Nachm.", {"vorm.", "nachm."}), kMidnight + 13 * 3600);
    EXPECT_EQ(parseHistoryDate("2/29/2024 0:00:00", plain), kMidnight + 58 * 86400);
    for (const char* bad : {"", "yesterday", "2/29/2023 1:00:00 AM", "13/01/2024 1:00:00 AM", "1/02/24 1:00:00 AM",
                            "1/02/2024 13:00:00 PM", "1/02/2024 1:60:00 AM", "1/02/2024 1:00:00 XM", "1/02/2024"})
        EXPECT_FALSE(parseHistoryDate(bad, plain)) << bad;
}

}  // namespace
}  // namespace hlyd
