// The rule every output of the program obeys: never over a file the run reads, never under the
// name of a Visual Basic file, never over a file that holds something else than what the output
// writes; the outputs of one run never one file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "files/output_guard.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

struct GuardCase {
    OutputKind kind;
    std::string name;
    std::optional<std::string> content;  // nothing: the file is not there
    const char* refusal;                 // a part of the reason; nullptr when it may be written
};

void PrintTo(const GuardCase& c, std::ostream* os) { *os << c.name; }

class OutputGuardTest : public test::ProgramTest, public ::testing::WithParamInterface<GuardCase> {
protected:
    std::string path(const std::string& name) const { return (fs::path(dir) / name).string(); }
};

TEST_P(OutputGuardTest, RefusesWhatWouldWriteOverAFileOfTheUsers) {
    const GuardCase& c = GetParam();
    std::string target = path(c.name);
    if (c.content) std::ofstream(target, std::ios::binary) << *c.content;
    std::ofstream(path("input.txt"), std::ios::binary) << "%PDF-1.4 the user's own";
    std::string refusal = outputRefusal({target, c.kind, "--out"}, {path("input.txt")});
    if (!c.refusal) {
        EXPECT_EQ(refusal, "");
        return;
    }
    EXPECT_NE(refusal.find(c.refusal), std::string::npos) << refusal;
    EXPECT_NE(refusal.find(target + " named by --out"), std::string::npos) << refusal;
}

const std::string kLog = " =====> Halyard 1.0\n/usr/bin/halyard\n<=====\n";

INSTANTIATE_TEST_SUITE_P(
        Targets, OutputGuardTest,
        ::testing::Values(
                GuardCase{OutputKind::Pdf, "new.pdf", std::nullopt, nullptr},
                GuardCase{OutputKind::Pdf, "old.pdf", "%PDF-1.7\n", nullptr},
                GuardCase{OutputKind::Pdf, "made-by-a-script.pdf", "", nullptr},
                GuardCase{OutputKind::Pdf, "letter.pdf", "Dear reader", "no PDF file"},
                GuardCase{OutputKind::Pdf, "input.txt", std::nullopt, "a file this run reads"},
                GuardCase{OutputKind::Pdf, "New.BAS", std::nullopt, ".BAS of a Visual Basic"},
                GuardCase{OutputKind::Html, "form.frm", std::nullopt, ".FRM of a Visual Basic"},
                GuardCase{OutputKind::Html, "group.vbg", "", ".VBG of a Visual Basic"},
                GuardCase{OutputKind::Html, "old.html", "\xEF\xBB\xBF\r\n<!DOCTYPE HTML>", nullptr},
                GuardCase{OutputKind::Html, "ours.htm", "<html>\r\n<head>", nullptr},
                GuardCase{OutputKind::Html, "readme.htm", "# Notes\n", "no HTML document"},
                GuardCase{OutputKind::History, "hist.tmr", "[Tamarin Halyard for Visual Basic]\nA.bas=1\n", nullptr},
                GuardCase{OutputKind::History, "sibling.tmr", "[Tamarin Glosser for Visual Basic]\nB.bas=1\n", nullptr},
                GuardCase{OutputKind::History, "other.ini", "[Window]\nTop=1\n", "no print history"},
                GuardCase{OutputKind::Log, "run.log", kLog, nullptr},
                GuardCase{OutputKind::Log, "notes.log", "things to do\n", "no log file"}));

TEST_F(OutputGuardTest, TheOutputsOfOneRunAreNeverOneFile) {
    std::string pdf = path("same.out");
    std::string html = path("./same.out");
    std::vector<OutputTarget> targets{{pdf, OutputKind::Pdf, "--pdf"}, {html, OutputKind::Html, "--html"}};
    std::string refusal = outputsRefusal(targets, {});
    EXPECT_NE(refusal.find("the HTML document " + html + " named by --html: it is also the PDF file named by --pdf"),
              std::string::npos)
            << refusal;
    targets[1].path = path("other.out");
    EXPECT_EQ(outputsRefusal(targets, {}), "");
    // A folder is never written into as a file.
    fs::create_directory(path("folder.pdf"));
    EXPECT_NE(outputRefusal({path("folder.pdf"), OutputKind::Pdf, "--pdf"}, {}).find("is a folder"), std::string::npos);
}

}  // namespace
}  // namespace hlyd
