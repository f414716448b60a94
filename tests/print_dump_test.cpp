// hlyd-dump --print: every call of a print run as one JSON object a line.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "print_dump.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

class PrintDumpTest : public test::ProgramTest {
protected:
    std::vector<std::string> run(PrintDumpOptions options) {
        std::ostringstream out, err;
        status = dumpPrint(options, out, err);
        errors = err.str();
        std::vector<std::string> lines;
        std::istringstream in(out.str());
        for (std::string line; std::getline(in, line);) lines.push_back(line);
        return lines;
    }
    static bool has(const std::vector<std::string>& lines, const std::string& piece) {
        for (const std::string& l : lines)
            if (l.find(piece) != std::string::npos) return true;
        return false;
    }
    int status = -1;
    std::string errors;
};

const char* const kModule =
        "Attribute VB_Name = \"Two\"\nSub First()\n    A = 1\nEnd Sub\nSub Second()\n    B = \"caf\xE9\"\nEnd Sub\n";

TEST_F(PrintDumpTest, APrintRunIsToldCallByCallFromPrinterToEnd) {
    PrintDumpOptions options;
    options.file = test::writeTempFile("Two.bas", kModule);
    options.startPage = 5;  // it counts under continuous numbering; by module each file starts at 1
    hlydSettings().PageNumberHow = 2;
    saveAllSettings();
    options.procs = {"Second"};
    std::vector<std::string> lines = run(options);
    ASSERT_EQ(status, 0) << errors;
    ASSERT_GE(lines.size(), 4u);
    EXPECT_EQ(lines.front().rfind("{\"kind\":\"printer\",\"DeviceName\":\"", 0), 0u);
    EXPECT_NE(lines.front().find("\"Width\":12240,\"Height\":15840,\"ScaleLeft\":0,\"ScaleTop\":0,\"ScaleWidth\":11520,"
                                 "\"ScaleHeight\":15120,\"XOffset\":360,\"YOffset\":360,\"PixelsPerInch\":600}"),
              std::string::npos);
    EXPECT_EQ(lines[1], "{\"kind\":\"page\",\"doc\":1,\"page\":1,\"printed\":5,\"type\":1}");
    EXPECT_TRUE(has(lines, "\"text\":\"\\\"caf\xC3\xA9\\\"\"}"));  // Windows-1252 in, UTF-8 out
    EXPECT_TRUE(has(lines, "\"text\":\"Second\""));
    EXPECT_FALSE(has(lines, "\"text\":\"First\""));
    EXPECT_TRUE(has(lines, "{\"kind\":\"enddoc\",\"doc\":1}"));
    EXPECT_EQ(lines.back(), "{\"kind\":\"end\",\"PrintStatus\":0,\"pages\":1,\"documents\":1}");
}

TEST_F(PrintDumpTest, ARangePastTheEndDeliversNoPage) {
    PrintDumpOptions options;
    options.file = test::writeTempFile("Two.bas", kModule);
    ASSERT_TRUE(parsePageRange("3-4", options));
    EXPECT_FALSE(parsePageRange("3", options));
    EXPECT_FALSE(parsePageRange("a-4", options));
    std::vector<std::string> lines = run(options);
    EXPECT_TRUE(has(lines, "{\"kind\":\"killdoc\",\"doc\":1}"));
    EXPECT_EQ(lines.back(), "{\"kind\":\"end\",\"PrintStatus\":0,\"pages\":0,\"documents\":1}");
}

}  // namespace
}  // namespace hlyd
