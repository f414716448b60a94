// The linked HTML site: how a line's tokens become page text and links, the names of the member
// pages, and the links a small project of our own gets.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "files/file_loading.h"
#include "files/file_table.h"
#include "files/open_for_run.h"
#include "html/site_connectors.h"
#include "html/site_line.h"
#include "html/site_names.h"
#include "html/site_writer.h"
#include "settings/attributes.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

ShownToken token(std::string_view text, int spaces, int element, std::int32_t index) {
    return {text, spaces, element, false, index};
}

TEST(SiteLineTest, TokensAreEscapedTextAndALinkLandsOnItsOwnToken) {
    // x = "a<b & ""c""" ' 1 < 2 & "é" — a string and a comment hold every character to escape.
    std::vector<ShownToken> tokens = {token("x", 4, 2, 0), token("=", 1, 3, 1), token("\"a<b & \"\"c\"\"\"", 1, 4, 2),
                                      token("' 1 < 2 & \"\xE9\"", 1, 1, 3)};
    std::string line = siteLine(tokens, 7, 3, {{0, "Other-bas.html#L12"}, {3, "never\"used"}});
    EXPECT_EQ(line,
              "<span class=\"LineNo\" id=\"L7\">  7</span>     <a class=\"Identifier\" "
              "href=\"Other-bas.html#L12\">x</a> <span class=\"KeyWord\">=</span> <span class=\"Literal\">"
              "&quot;a&lt;b &amp; &quot;&quot;c&quot;&quot;&quot;</span> <a class=\"Comment\" "
              "href=\"never&quot;used\">&#39; 1 &lt; 2 &amp; &quot;\xC3\xA9&quot;</a>");
    // The continuation mark is no token of the line, and takes no link.
    EXPECT_EQ(siteLine({token(" _", 0, 3, -1)}, 1, 1, {{-1, "x.html"}}),
              "<span class=\"LineNo\" id=\"L1\">1</span> <span class=\"KeyWord\"> _</span>");
}

TEST(SiteLineTest, PathsStayUtf8AndOtherBytesAreReadAsTheSource) {
    EXPECT_EQ(sitePathText("/p/Gr\xC3\xBC\xC3\x9F<e>.bas"), "/p/Gr\xC3\xBC\xC3\x9F&#60;e&#62;.bas");
    EXPECT_EQ(sitePathText("/p/Gr\xFC\xDF.bas"), "/p/Gr\xC3\xBC\xC3\x9F.bas");
}

TEST(SitePageNamesTest, NamesAreSafeAndUniqueWithoutRegardToCase) {
    EXPECT_EQ(sitePageNames(
                      {"/a/Main.bas", "/b/main.bas", "/a/Main.frm", "/a/index", "/a/x<y> \"z\".cls", "/a/\xE9.bas"}),
              (std::vector<std::string>{"Main-bas.html", "main-bas-2.html", "Main-frm.html", "index-2.html",
                                        "x_y___z_-cls.html", "_-bas.html"}));
}

// Each link of a page as "text -> href". (No std::regex here: its automaton trips a false
// warning of GCC in the sanitized build.)
std::vector<std::string> linksIn(const std::string& page, const std::string& from, const std::string& to) {
    std::size_t begin = page.find(from), end = page.find(to, begin);
    std::string part = page.substr(begin, end - begin);
    std::vector<std::string> out;
    const std::string open = "<a class=\"", href = "\" href=\"";
    for (std::size_t at = part.find(open); at != std::string::npos; at = part.find(open, at + 1)) {
        std::size_t hrefAt = part.find(href, at), tagEnd = part.find("\">", hrefAt + href.size());
        std::size_t close = part.find("</a>", tagEnd);
        if (hrefAt == std::string::npos || tagEnd == std::string::npos || close == std::string::npos) break;
        std::string text = part.substr(tagEnd + 2, close - tagEnd - 2);
        if (text.find('<') != std::string::npos) continue;
        out.push_back(text + " -> " + part.substr(hrefAt + href.size(), tagEnd - hrefAt - href.size()));
    }
    return out;
}

class SiteTest : public test::ProgramTest {
protected:
    std::string page(const std::string& name) {
        std::ifstream in(fs::path(dir) / "site" / name, std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }
};

TEST_F(SiteTest, AProjectsUsesLeadToTheirDeclarationsAcrossMembers) {
    openFileForRun(std::string(HLYD_TEST_DATA) + "/site/Site.vbp");
    fs::create_directory(fs::path(dir) / "site");
    ProcessSelectedFile(3);
    HtmlSite site(dir + "/site");
    EXPECT_EQ(site.outputs(), (std::vector<std::string>{dir + "/site/index.html", dir + "/site/frmMain-frm.html",
                                                        dir + "/site/Shapes-bas.html", dir + "/site/Shapes-bas-2.html",
                                                        dir + "/site/Counter-cls.html"}));
    ASSERT_EQ(site.write(), "");
    using Links = std::vector<std::string>;
    // A use in another member leads to that member's page; a declaration to its uses.
    EXPECT_EQ(linksIn(page("frmMain-frm.html"), "<pre", "</pre>"),
              (Links{"cmdGo -> #d0", "cmdGo_Click -> #d1", "cmdGo -> #L4", "gCount -> Shapes-bas.html#L3",
                     "Report -> Shapes-bas-2.html#L2"}));
    EXPECT_EQ(linksIn(page("Counter-cls.html"), "<pre", "</pre>"),
              (Links{"mValue -> #d6", "Bump -> #d7", "mValue -> #L6", "mValue -> #L6",
                     "AddShape -> Shapes-bas.html#L6"}));
    // Comments and strings use nothing: the member's own names only.
    EXPECT_EQ(linksIn(page("Shapes-bas.html"), "<pre", "</pre>"),
              (Links{"gCount -> #d2", "MaxShapes -> #d3", "AddShape -> #d4", "gCount -> #L3", "gCount -> #L3",
                     "AddShape -> #L6", "MaxShapes -> #L4"}));
    std::string index = page("index.html");
    EXPECT_NE(index.find("<h2>Classes</h2>\n<ul>\n<li><a href=\"Counter-cls.html\">Counter</a>"), std::string::npos);
    EXPECT_LT(index.find("<h2>Forms"), index.find("<h2>Modules"));
    EXPECT_LT(index.find("<h2>Modules"), index.find("<h2>Classes"));
    EXPECT_NE(index.find("<a href=\"Shapes-bas-2.html#d5\">Report</a></td><td>Sub</td><td><a "
                         "href=\"Shapes-bas-2.html#L2\">ShapesToo:2</a></td><td><a href=\"frmMain-frm.html#L11\">"
                         "frmMain:11</a></td>"),
              std::string::npos);
    // A page that declares HTML5 gets its colours only with the "#": without it the browser drops them.
    const std::string shapes = page("Shapes-bas.html");
    EXPECT_NE(shapes.find(".KeyWord {\r\n    color:#"), std::string::npos);
    for (std::size_t at = shapes.find("color:"); at != std::string::npos; at = shapes.find("color:", at + 1))
        EXPECT_FALSE(std::isxdigit(static_cast<unsigned char>(shapes[at + 6]))) << shapes.substr(at, 16);
    // gCount = gCount + 1 reads and assigns: the assignment is told apart.
    EXPECT_NE(shapes.find(">Shapes:8*</a>, <a href=\"#L8\">Shapes:8</a>"), std::string::npos);
    // The tables describe the file selected before the site, as the window expects.
    EXPECT_EQ(fileTable().wCurrentFile, 3);
    EXPECT_EQ(fileTable().sVBName, "Shapes");
}

// Where each line of a page's listing has a vertical: the columns of its connector spans.
std::vector<std::vector<int>> connectorColumns(const std::string& page) {
    std::vector<std::vector<int>> lines;
    std::istringstream in(page.substr(page.find("<pre"), page.find("</pre>") - page.find("<pre")));
    const std::string lineNo = "</span> ", connector = std::string("<span class=\"") + kConnectorClass + "\">";
    for (std::string line; std::getline(in, line);) {
        if (line.find(lineNo) == std::string::npos) continue;
        std::vector<int>& columns = lines.emplace_back();
        int column = 0;
        for (std::size_t i = line.find(lineNo) + lineNo.size(); i < line.size(); ++i) {
            if (line.compare(i, connector.size(), connector) == 0) columns.push_back(column);
            if (line[i] == '<') i = line.find('>', i);
            else if (line[i] == '&') i = line.find(';', i), ++column;
            else ++column;
        }
    }
    return lines;
}

TEST_F(SiteTest, VerticalsCrossTheLinesInsideEachBlockAtItsOpenersColumn) {
    showSource("Nesting.bas",
               "Attribute VB_Name = \"Nesting\"\r\n"
               "Public Function Tally(ByVal limit As Long) As Long\r\n"
               "    Dim i As Long\r\n"
               "    For i = 1 To limit\r\n"
               "        If i Mod 2 = 0 Then\r\n"
               "            Do While Tally < i\r\n"
               "                Tally = Tally + 1\r\n"
               "            Loop\r\n"
               "        Else\r\n"
               "10          Tally = Tally _\r\n"
               "                - 1\r\n"
               "        End If\r\n"
               "    Next i\r\n"
               "End Function\r\n");
    // A form description keeps its own blanks: its verticals stand where its Begin lines do.
    showSource("Form1.frm",
               "VERSION 5.00\r\nBegin VB.Form Form1\r\n   Caption = \"One\"\r\n   Begin VB.CommandButton cmdGo\r\n"
               "      Caption = \"Go\"\r\n   End\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\n");
    fs::create_directory(fs::path(dir) / "site");
    ASSERT_EQ(HtmlSite(dir + "/site").write(), "");
    using Columns = std::vector<std::vector<int>>;
    EXPECT_EQ(connectorColumns(page("Nesting-bas.html")),
              (Columns{{}, {}, {}, {}, {0}, {0, 4}, {0, 4, 8}, {0, 4}, {0}, {4}, {0, 4}, {0}, {}, {}}));
    EXPECT_EQ(connectorColumns(page("Form1-frm.html")), (Columns{{}, {}, {0}, {0}, {0, 3}, {0}, {}, {}}));
    EXPECT_NE(page("Nesting-bas.html").find("pre.listing .Connector { border-left: 1px solid #"), std::string::npos);

    // With the source's own blanks kept, its own columns count, however it indents.
    showSource("Kept.bas",
               "Attribute VB_Name = \"Kept\"\r\nSub Go()\r\nIf a Then\r\n  If b Then\r\n     x = 1\r\n"
               "  End If\r\nEnd If\r\nEnd Sub\r\n");
    displayAttributes().Format[kDisplay].Indent = 0;
    ASSERT_EQ(HtmlSite(dir + "/site").write(), "");
    EXPECT_EQ(connectorColumns(page("Kept-bas.html")), (Columns{{}, {}, {}, {0}, {0, 2}, {0}, {}, {}}));

    // The spans only wrap blanks: without them the text a reader copies is as before.
    std::string drawn = page("Nesting-bas.html");
    displayAttributes().Format[kDisplay].ConnectControls = 0;
    ASSERT_EQ(HtmlSite(dir + "/site").write(), "");
    std::string plain = page("Nesting-bas.html");
    EXPECT_EQ(plain.find("Connector"), std::string::npos);
    const std::string span = "<span class=\"Connector\">";
    for (std::size_t at = drawn.find(span); at != std::string::npos; at = drawn.find(span, at)) {
        drawn.erase(at, span.size());
        drawn.erase(drawn.find("</span>", at), 7);
    }
    EXPECT_EQ(drawn.substr(drawn.find("<pre")), plain.substr(plain.find("<pre")));
}

}  // namespace
}  // namespace hlyd
