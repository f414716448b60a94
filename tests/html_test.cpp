// The HTML document, byte for byte, for a module and for a project listing; and the writer's
// rules that a reader of the document relies on.
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "base/hlyd_error.h"
#include "files/file_show.h"
#include "files/file_table.h"
#include "files/main_window_model.h"
#include "files/project_file.h"
#include "files/project_listing.h"
#include "html/gen_html.h"
#include "html/html_emit.h"
#include "html/html_text.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

std::string readAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream all;
    all << in.rdbuf();
    return all.str();
}

class HtmlTest : public test::ProgramTest {
protected:
    void SetUp() override {
        ProgramTest::SetUp();
        clock.moment = 1767225600;  // 2026-01-01 00:00:00
        for (const char* name : {"Module1.bas", "Html.vbp"}) {
            fs::copy_file(fs::path(HLYD_TEST_DATA) / "html" / name, fs::path(dir) / name);
            fs::last_write_time(fs::path(dir) / name,
                                std::chrono::file_clock::from_sys(std::chrono::system_clock::from_time_t(1700000000)));
        }
    }
    // The golden document with the directory of this run put in.
    std::string golden(const std::string& name) {
        std::string text = readAll(fs::path(HLYD_TEST_DATA) / "html" / name);
        for (std::size_t at = text.find("@DIR@"); at != std::string::npos; at = text.find("@DIR@", at))
            text.replace(at, 5, dir);
        return text;
    }
    std::string source(const std::string& name) { return (fs::path(dir) / name).string(); }

    test::UtcZone utc_;
};

TEST_F(HtmlTest, ModuleDocumentIsExactlyTheGoldenOne) {
    oFile().Add({source("Module1.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    ui.saveAnswer = source("out.html");
    HlydMNSaveAsHTML();
    ASSERT_EQ(ui.dialogs.size(), 1u);
    EXPECT_EQ(ui.dialogs[0].title, "Save as HTML");
    EXPECT_EQ(ui.dialogs[0].fileName, source("Module1.HTML"));
    EXPECT_EQ(ui.dialogs[0].filter, "HTML Files|*.htm;*.html|All Files (*.*)|*.*");
    EXPECT_EQ(readAll(source("out.html")), golden("Module1.golden.html"));
    EXPECT_EQ(mainWindow().lblStatus, "HTML generated for " + source("Module1.bas"));
}

TEST_F(HtmlTest, ProjectListingIsExactlyTheGoldenOne) {
    fileTable().projectOpen = true;
    PFParseFile({cFileDesc{source("Html.vbp"), kFileProject, true, 0, 0}});
    HlydFLProcessSelectedFile(1);
    ui.saveAnswer = source("project.html");
    HTMLEmitAFile();
    EXPECT_EQ(readAll(source("project.html")), golden("Html.golden.html"));
}

TEST_F(HtmlTest, CancelledDialogLeavesNoFileAndNothingOpen) {
    oFile().Add({source("Module1.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    HTMLEmitAFile();
    EXPECT_FALSE(fs::exists(source("Module1.HTML")));
    for (const auto& entry : fs::directory_iterator(dir))
        EXPECT_EQ(entry.path().extension().string().find(".part"), std::string::npos) << entry.path();
}

// The dialog starts where the last document went (beside the source the first time), and the
// status speaks of the work only once a target is chosen: a Cancel leaves it as it was.
TEST_F(HtmlTest, SaveDialogStartsWhereTheLastDocumentWent) {
    fs::create_directory(source("exports"));
    oFile().Add({source("Module1.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    std::vector<std::string> statusWhileAsked;
    ui.whileDialogShows = [&] { statusWhileAsked.push_back(mainWindow().lblStatus); };
    mainWindow().lblStatus = "Ready";

    HlydMNSaveAsHTML();  // cancelled
    EXPECT_EQ(mainWindow().lblStatus, "Ready");
    EXPECT_EQ(hlydSettings().LastHTMLLoc, "");

    ui.saveAnswer = source("exports/first.html");
    HlydMNSaveAsHTML();
    EXPECT_EQ(statusWhileAsked, (std::vector<std::string>{"Ready", "Ready"}));
    EXPECT_EQ(hlydSettings().LastHTMLLoc, source("exports"));
    EXPECT_EQ(iniHandler().ReadString("LastHTMLLoc", "", "General"), source("exports"));

    HlydMNSaveAsHTML();
    ASSERT_EQ(ui.dialogs.size(), 3u);
    EXPECT_EQ(ui.dialogs[1].directory, "");
    EXPECT_EQ(ui.dialogs[1].fileName, source("Module1.HTML"));
    EXPECT_EQ(ui.dialogs[2].directory, source("exports"));
    EXPECT_EQ(ui.dialogs[2].fileName, "Module1.HTML");
}

TEST_F(HtmlTest, UnwritablePlaceRaisesAndLeavesNothingBehind) {
    oFile().Add({source("Module1.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    ui.saveAnswer = source("missing-directory/out.html");
    EXPECT_THROW(HTMLEmitAFile(), HlydError);
    EXPECT_FALSE(fs::exists(source("missing-directory")));
}

// No output replaces a source of the run, however the name is spelt, nor a file of another kind,
// nor a FIFO: the user is told why, and nothing is written. A link to the output is written
// through, and stays a link.
TEST_F(HtmlTest, OutputNeverReplacesAnInputOrAFifoAndFollowsALink) {
    oFile().Add({source("Module1.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    const std::string sourceText = readAll(source("Module1.bas"));
    fs::create_directory(source("sub"));
    std::ofstream(source("notes.txt")) << "the user's";
    ASSERT_EQ(::mkfifo(source("pipe.html").c_str(), 0644), 0);
    for (const std::string& refused :
         {source("Module1.bas"), source("sub/../Module1.bas"), source("notes.txt"), source("pipe.html")}) {
        ui.saveAnswer = refused;
        ui.shown.clear();
        EXPECT_FALSE(HTMLEmitAFile()) << refused;
        ASSERT_EQ(ui.shown.size(), 1u) << refused;
        EXPECT_NE(ui.shown[0].text.find("will not write the HTML document " + refused), std::string::npos)
                << ui.shown[0].text;
    }
    EXPECT_EQ(readAll(source("Module1.bas")), sourceText);
    EXPECT_EQ(readAll(source("notes.txt")), "the user's");
    EXPECT_EQ(fs::status(source("pipe.html")).type(), fs::file_type::fifo);

    std::ofstream(source("real.html")) << "<html>old";
    fs::create_symlink(source("real.html"), source("link.html"));
    ui.saveAnswer = source("link.html");
    HTMLEmitAFile();
    EXPECT_TRUE(fs::is_symlink(source("link.html")));
    EXPECT_EQ(readAll(source("real.html")).rfind("<html>", 0), 0u);
}

// The listing's font tags, as a reader's parser sees them: every one opened is closed on its own
// line, and none is closed that isn't open. (The fixed frame of the document, its anchors and
// the closing span, stands as the format has it.) Returns the faults, one per line.
std::vector<std::string> unbalancedFontTags(const std::string& document) {
    std::vector<std::string> faults;
    std::istringstream lines(document);
    std::string line;
    for (int n = 1; std::getline(lines, line); ++n) {
        int open = 0;
        for (std::size_t at = line.find('<'); at != std::string::npos; at = line.find('<', at + 1)) {
            if (line.compare(at, 5, "<font") == 0) ++open;
            if (line.compare(at, 7, "</font>") == 0 && --open < 0)
                faults.push_back("line " + std::to_string(n) + ": closed, not open");
        }
        if (open > 0) faults.push_back("line " + std::to_string(n) + ": left open: " + line);
    }
    return faults;
}

TEST_F(HtmlTest, FontTagsBalanceAndTheFormDescriptionIsIndentedOnce) {
    std::ofstream(source("Heads.bas")) << "Attribute VB_Name = \"Heads\"\r\n"
                                          "Public Function Three(ByVal a As Long, _\r\n"
                                          "                      ByVal b As Long, _\r\n"
                                          "                      ByVal c As Long) As Long\r\n"
                                          "    Three = a + b + c\r\n"
                                          "End Function\r\n";
    std::ofstream(source("Form1.frm")) << "VERSION 5.00\r\n"
                                          "Begin VB.Form Form1\r\n"
                                          "   Caption         =   \"Form1\"\r\n"
                                          "   Begin VB.CommandButton cmdGo\r\n"
                                          "      Caption         =   \"Go\"\r\n"
                                          "   End\r\n"
                                          "End\r\n"
                                          "Attribute VB_Name = \"Form1\"\r\n";
    for (const char* name : {"Heads.bas", "Form1.frm"}) {
        SCOPED_TRACE(name);
        oFile().Add({source(name), kFileSource, false, 0, 0});
        HlydFLProcessSelectedFile(static_cast<std::int16_t>(oFile().Count()));
        ui.saveAnswer = source(std::string(name) + ".html");
        HTMLEmitAFile();
        EXPECT_EQ(unbalancedFontTags(readAll(source(std::string(name) + ".html"))), std::vector<std::string>{});
    }
    // The heading's anchor and link on its first line, its tags closed there.
    std::string heads = readAll(source("Heads.bas.html"));
    EXPECT_NE(heads.find("<a name=\"Three\"><font class=\"Proc\">Public Function Three(ByVal a As Long,</font>"
                         "<font class=\"KeyWord\"> _  <A HREF=\"#TopOfTOC\">Table of Contents</A></font>\r\n"),
              std::string::npos);
    // The form's lines keep their own blanks, once, though analysis indents them.
    std::string form = readAll(source("Form1.frm.html"));
    EXPECT_NE(form.find("\r\n   <font class=\"Identifier\">Caption         </font>"), std::string::npos);
    EXPECT_NE(form.find("\r\n      <font class=\"Identifier\">Caption         </font>"), std::string::npos);
    EXPECT_NE(form.find("\r\n   <font class=\"KeyWord\">End</font>\r\n"), std::string::npos);
}

// A large file's records are planned in shares; a heading continued over lines may straddle
// two of them. Every copy of one procedure must come out the same, wherever it falls.
TEST_F(HtmlTest, EveryCopyOfAProcedureIsTheSameInALargeFile) {
    constexpr int kCopies = 2000;  // eleven lines each: share borders fall on several lines of one
    std::ofstream big(source("Big.bas"), std::ios::binary);
    big << "Attribute VB_Name = \"Big\"\r\n";
    for (int i = 1; i <= kCopies; ++i) {
        char name[8];
        std::snprintf(name, sizeof name, "P%04d", i);
        const std::string n = name;
        big << "Public Function " << n << "(ByVal a As Long, _\r\n"
            << "                      ByVal b As String, _\r\n"
            << "                      c As Variant) As Long\r\n"
            << "10  Dim s As String ' a <comment> & more\r\n"
            << "    s = \"x < y & z\"\r\n"
            << "    If a > 0 Then\r\n"
            << "        " << n << " = a + Len(b)\r\n"
            << "    Else\r\n"
            << "        " << n << " = -1\r\n"
            << "    End If\r\n"
            << "End Function\r\n";
    }
    big.close();
    oFile().Add({source("Big.bas"), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    ui.saveAnswer = source("big.html");
    HTMLEmitAFile();
    const std::string written = readAll(source("big.html"));
    int expected = 1;  // the copies in their order
    for (std::size_t at = written.find("<a name=\"P"); at != std::string::npos;
         at = written.find("<a name=\"P", at + 1))
        ASSERT_EQ(std::stoi(written.substr(at + 10, 4)), expected++);
    // Every name made the same (no std::regex: its automaton trips a false warning of GCC in the
    // sanitized build).
    std::string document = written;
    for (std::size_t at = document.find('P'); at != std::string::npos; at = document.find('P', at + 1))
        if (at + 5 <= document.size() && std::all_of(document.begin() + static_cast<std::ptrdiff_t>(at) + 1,
                                                     document.begin() + static_cast<std::ptrdiff_t>(at) + 5,
                                                     [](char c) { return c >= '0' && c <= '9'; }))
            document.replace(at + 1, 4, "XXXX");
    std::vector<std::size_t> starts;
    for (std::size_t at = document.find("<a name=\"PXXXX\">"); at != std::string::npos;
         at = document.find("<a name=\"PXXXX\">", at + 1))
        starts.push_back(at);
    ASSERT_EQ(starts.size(), static_cast<std::size_t>(kCopies));
    const std::string first = document.substr(starts[0], starts[1] - starts[0]);
    EXPECT_NE(first.find("a &lt;comment&gt; & more"), std::string::npos);
    for (std::size_t k = 1; k + 1 < starts.size(); ++k)
        ASSERT_EQ(document.substr(starts[k], starts[k + 1] - starts[k]), first) << "copy " << k + 1;
    // The last has no separator after it.
    const std::string last = first.substr(0, first.rfind("<hr>"));
    EXPECT_EQ(document.compare(starts.back(), last.size(), last), 0);
}

// A name is text wherever it stands: the file's in the title and the paragraph, the module's in
// the heading. No control byte of a name or of the source reaches the document raw.
TEST_F(HtmlTest, NamesAreTextAndControlBytesAreShown) {
    const std::string name = "x<b onmouseover=alert(1)>.bas";
    std::ofstream(source(name), std::ios::binary) << "Attribute VB_Name = \"<script>alert(1)</script>\"\r\n"
                                                  << std::string("' a NUL \0, an escape \x1B and a DEL \x7F\r\n", 36)
                                                  << "Public Sub Go()\r\n"
                                                     "    s = \"a\x01"
                                                     "b\" & \"&amp;\"\r\n"
                                                     "End Sub\r\n";
    oFile().Add({source(name), kFileSource, false, 0, 0});
    HlydFLProcessSelectedFile(1);
    ui.saveAnswer = source("out.html");
    HTMLEmitAFile();
    const std::string document = readAll(source("out.html"));
    EXPECT_EQ(document.find("<b "), std::string::npos);
    EXPECT_EQ(document.find("<script"), std::string::npos);
    EXPECT_NE(document.find("<title>x&lt;b onmouseover=alert(1)&gt;.bas</title>"), std::string::npos);
    EXPECT_NE(document.find("<p>" + dir + "/x&lt;b onmouseover=alert(1)&gt;.bas<br>"), std::string::npos);
    EXPECT_NE(document.find("<H1 Align=center>&lt;script&gt;alert(1)&lt;/script&gt;</H1>"), std::string::npos);
    EXPECT_NE(document.find("a NUL &#x2400;, an escape &#x241B; and a DEL &#x2421;"), std::string::npos);
    EXPECT_NE(document.find("a&#x2401;b"), std::string::npos);
    EXPECT_NE(document.find("&amp;\""), std::string::npos);  // code as written
    for (char c : document) {
        auto byte = static_cast<unsigned char>(c);
        EXPECT_TRUE(byte >= 0x20 || c == '\r' || c == '\n') << "raw control byte " << int(byte);
        EXPECT_NE(byte, 0x7F);
    }
}

TEST(HtmlWriterTest, ColoursTagsAndEscaping) {
    EXPECT_EQ(htmlColourText(0), "000000");
    EXPECT_EQ(htmlColourText(0xFF), "FF0000");
    EXPECT_EQ(htmlColourText(0xFF00), "00FF00");
    EXPECT_EQ(htmlColourText(0xFF0000), "0000FF");
    EXPECT_EQ(htmlColourText(0xFFF), "000000");  // odd length stays black
    EXPECT_EQ(htmlColourText(0x80000005), "000000");
    EXPECT_STREQ(htmlClassName(99), "a:link");
    EXPECT_STREQ(htmlClassName(9), "Unknown");

    cGenHTML doc;
    std::string a, b, c, lineEnd;
    doc.InsertToken("If", 0, 3, a);
    doc.InsertToken("<>", 1, 3, b);  // same element: no new tag
    doc.InsertToken("&", 2, 2, c);
    EXPECT_EQ(a, "<font class=\"KeyWord\">If");
    EXPECT_EQ(b, " &lt;&gt;");
    EXPECT_EQ(c, "  </font><font class=\"Identifier\">&");
    doc.InsertLineBreak(lineEnd);
    EXPECT_EQ(lineEnd, "</font>");
    doc.InsertLineBreak(lineEnd);
    EXPECT_EQ(lineEnd, "");  // nothing open at the start of a line
    // Each element keeps its own tag, the link and the unknown ones too, with and without a close.
    LineBuffer line;
    for (int element : {99, 7, 42, 99, 0, 7}) doc.AppendToken("x", 0, element, line);
    EXPECT_EQ(line.view(),
              "<font class=\"a:link\">x</font><font class=\"PageHead\">x</font><font class=\"Unknown\">x"
              "</font><font class=\"a:link\">x</font><font class=\"Unknown\">x</font><font class=\"PageHead\">x");
    EXPECT_EQ(escapedText("<a href=\"x\">Tom & 'Jerry'</a>\t\x81"),
              "&lt;a href=&quot;x&quot;&gt;Tom &amp; &#39;Jerry&#39;&lt;/a&gt;\t&#xFFFD;");
    EXPECT_EQ(styleSafe("Courier New;}</style><script>\n"), "Courier New/stylescript");
}

// Texts are tested a word at a time, the last word overlapping the one before: a byte to show is
// found in every place of texts that are one word, one and a half and two, and a byte that only
// looks special to the word test (a tab, a letter of the upper half) is still copied as it is.
using Shown = std::pair<std::string, std::string>;  // the text and how it is shown
class SourceTextTest : public ::testing::TestWithParam<Shown> {};

TEST_P(SourceTextTest, IsShownAsTheReaderMustSeeIt) {
    const auto& [text, shown] = GetParam();
    LineBuffer line;
    line.commit(writeSourceText(line.room(text.size() * kWidestShownByte), text));
    EXPECT_EQ(line.view(), shown);
}

INSTANTIATE_TEST_SUITE_P(Texts, SourceTextTest,
                         ::testing::Values(Shown{"", ""}, Shown{"<", "&lt;"}, Shown{"a>c", "a&gt;c"},
                                           Shown{"abcd<", "abcd&lt;"}, Shown{"<abcdefg", "&lt;abcdefg"},
                                           Shown{"abcdefghi<", "abcdefghi&lt;"},
                                           Shown{"abcdefg<h>ijklmn\x01", "abcdefg&lt;h&gt;ijklmn&#x2401;"},
                                           Shown{std::string("x\0y", 3), "x&#x2400;y"},
                                           Shown{"abcdefgh\x7F", "abcdefgh&#x2421;"},
                                           Shown{"Let s = \"\x81\"", "Let s = \"&#xFFFD;\""},
                                           Shown{"' caf\xE9\tx & \"y\" =~", "' caf\xE9\tx & \"y\" =~"}));

TEST(LineBufferTest, KeepsItsLineAcrossGrowth) {
    LineBuffer line;
    std::string expected;
    for (int i = 0; i < 100; ++i) {
        std::string piece = std::to_string(i) + ",";
        line.append(piece);
        expected += piece;
    }
    line.appendBlanks(300);
    expected.append(300, ' ');
    line.insertFront("<a>");
    EXPECT_EQ(line.view(), "<a>" + expected);
    line.clear();
    line.append("x");
    EXPECT_EQ(line.view(), "x");
}

}  // namespace
}  // namespace hlyd
