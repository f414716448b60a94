#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "base/c_debug.h"

#include "analysis_dump.h"
#include "html_dump.h"
#include "json_lines.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

class DumpTest : public AnalysisTest {};

TEST(JsonLinesTest, ConvertsWindows1252AndEscapesControls) {
    EXPECT_EQ(jsonString(std::string("a\0b", 3)), "\"a\\u0000b\"");
    EXPECT_EQ(jsonString("\"q\"\\\t"), "\"\\\"q\\\"\\\\\\u0009\"");
    EXPECT_EQ(jsonString("\x80\xE9\x81"), "\"\xE2\x82\xAC\xC3\xA9\\u0081\"");  // euro, e-acute, undefined
}

TEST(JsonLinesTest, FileNamesAreValidUtf8WhateverTheirBytes) {
    EXPECT_EQ(jsonPathString("caf\xC3\xA9/\x01.png"), "\"caf\xC3\xA9/\\u0001.png\"");       // UTF-8 kept
    EXPECT_EQ(jsonPathString("caf\xE9.bas"), "\"caf\xC3\xA9.bas\"");                        // Latin-1 converted
    EXPECT_EQ(jsonPathString("\xC0\xAF\xED\xA0\x80"), jsonString("\xC0\xAF\xED\xA0\x80"));  // overlong, surrogate
    EXPECT_EQ(JsonObject().add("type", "render").addPath("out", "a\tb").add("width", 800).str(),
              "{\"type\":\"render\",\"out\":\"a\\u0009b\",\"width\":800}");
}

TEST_F(DumpTest, PrintsValidateRecordsStatementsTokensAndEnd) {
    std::string path = writeTempFile("dump.bas", "Attribute VB_Name = \"M\"\r\nx = 1\r\n");
    std::ostringstream out, err;
    ASSERT_EQ(dumpFileAnalysis(path, {}, out, err), 0);
    std::string text = out.str();
    EXPECT_EQ(text.rfind("{\"kind\":\"validate\",\"BabStatus\":0,\"BabStatusDetail\":0,\"Dialect\":\"6\"}\n", 0), 0u);
    EXPECT_NE(text.find("{\"kind\":\"record\",\"n\":2,\"FirstS\":2,\"LastS\":2,\"FirstT\":5,\"LastT\":7,\"Indent\":0,"
                        "\"TiedTo\":0,\"TiedStart\":0}\n"),
              std::string::npos)
            << text;
    EXPECT_NE(text.find("{\"kind\":\"token\",\"n\":6,\"Class\":4,\"Detail\":6,\"Flags\":0,\"Continued\":0,"
                        "\"KeyWordSeen\":false,\"pKeyWord\":"),
              std::string::npos);
    EXPECT_NE(text.find("\"KeyWord\":\"LET\",\"Statement\":2,\"Text\":\"=\""), std::string::npos);
    EXPECT_NE(text.find("{\"kind\":\"end\",\"BabStatus\":11,\"BabStatusDetail\":0,\"Dialect\":\"6\",\"RecordCount\":3,"
                        "\"StatementCount\":2,\"TokenCount\":7}\n"),
              std::string::npos);
}

TEST_F(DumpTest, FailedValidationIsReportedAndTheFileStillAnalysed) {
    std::string path = writeTempFile("notes.txt", "Public Foo\r\n");
    std::ostringstream out, err;
    AnalysisDumpOptions options;
    options.summary = true;
    ASSERT_EQ(dumpFileAnalysis(path, options, out, err), 0);
    EXPECT_EQ(out.str(),
              "{\"kind\":\"validate\",\"BabStatus\":20,\"BabStatusDetail\":1,\"Dialect\":\"?\"}\n"
              "{\"kind\":\"end\",\"BabStatus\":11,\"BabStatusDetail\":0,\"Dialect\":\"6\",\"RecordCount\":2,"
              "\"StatementCount\":1,\"TokenCount\":2}\n");
}

TEST_F(DumpTest, UnopenableFileExitsWithTwo) {
    std::ostringstream out, err;
    EXPECT_EQ(dumpFileAnalysis("/nonexistent/x.bas", {}, out, err), 2);
    EXPECT_NE(err.str().find("cannot open /nonexistent/x.bas: No such file or directory"), std::string::npos);
    // A device is no file either: it would be read for ever, with or without the summary.
    AnalysisDumpOptions summary;
    summary.summary = true;
    for (const AnalysisDumpOptions& options : {AnalysisDumpOptions{}, summary}) {
        std::ostringstream devErr;
        EXPECT_EQ(dumpFileAnalysis("/dev/zero", options, out, devErr), 2);
        EXPECT_EQ(devErr.str(), "hlyd-dump: cannot open /dev/zero: Not a regular file\n");
    }
    // A directory is no file: refused, not read as an endless one.
    std::string dir = std::filesystem::temp_directory_path().string();
    EXPECT_EQ(dumpFileAnalysis(dir, {}, out, err), 2);
    std::string dialect;
    BabValidateFile(dir, dialect);
    EXPECT_EQ(theDebug().BabStatus, 7);
}

// An HTML export refused because its name is a source's ends with the status of an unwritten
// output, and the source is as it was.
TEST_F(DumpTest, AnHtmlExportOverASourceIsRefusedWithItsStatus) {
    const std::string text = "Attribute VB_Name = \"M\"\nSub A()\nEnd Sub\n";
    std::string source = writeTempFile("refused_html.bas", text);
    std::ostringstream err;
    EXPECT_EQ(dumpHtml(source, source, err), 3);
    std::ifstream in(source, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}), text);
}

}  // namespace
}  // namespace hlyd::test
