// Limits and hostile input: whatever a file holds, the analysis ends, keeps what it read before a
// fault, and says why in the status; and the first-line check tells source from anything else.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <ostream>
#include <random>

#include "base/c_debug.h"
#include "base/c_log.h"
#include "platform/os.h"
#include "settings/system_queries.h"
#include "test_support.h"

using namespace std::string_literals;

namespace {

using Texts = std::vector<std::string>;

class BadInputTest : public hlyd::test::AnalysisTest {
protected:
    std::string logPath() const {
        static const std::string path = hlyd::test::writeTempFile("bad_input.log", "");
        return path;
    }
    std::string readLog() {
        hlyd::theLog().LogClose();
        std::ifstream in(logPath(), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    std::int16_t status() const { return hlyd::theDebug().BabStatus; }
    std::int16_t detail() const { return hlyd::theDebug().BabStatusDetail; }

    // Every Record points at tokens that exist, and the sentinel closes the table.
    void expectConsistentTables() {
        for (std::int32_t r = 1; r < tables().RecordCount; ++r) {
            ASSERT_GE(record(r).FirstT, 1) << "record " << r;
            ASSERT_LE(record(r).FirstT, record(r).LastT) << "record " << r;
            ASSERT_LE(record(r).LastT, tables().TokenCount) << "record " << r;
        }
        if (tables().RecordCount > 0) {
            EXPECT_EQ(record(tables().RecordCount).FirstT, 0);
        }
    }
};

std::string lines(const std::string& line, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += line + "\n";
    return text;
}

// A line at a limit of the reader is read whole; one past it ends the file with a marker in its
// place, the lines before it kept, and the reason logged. Every character of a line may be a token,
// so the token limit is reached within the length limit; on a line past both the length counts.
struct LineLimitCase {
    const char* name;
    std::string fits;  // empty: none
    std::int32_t fitsTokens;
    std::string overflows;
    int detail;
    std::string logged;
};

void PrintTo(const LineLimitCase& c, std::ostream* os) { *os << c.name; }

class LineLimitTest : public BadInputTest, public ::testing::WithParamInterface<LineLimitCase> {};

TEST_P(LineLimitTest, FitsOrEndsTheFile) {
    const LineLimitCase& c = GetParam();
    if (!c.fits.empty()) {
        ASSERT_EQ(analyze("x = 1\n" + c.fits + "\ny = 2\n"), 11);
        EXPECT_EQ(record(2).LastT - record(2).FirstT + 1, c.fitsTokens);
        std::string line;
        for (std::int32_t t = record(2).FirstT; t <= record(2).LastT; ++t)
            (line += token(t).leadingSpace()) += token(t).text();
        EXPECT_EQ(line, c.fits);
    }
    hlyd::theLog().LogOpen(logPath(), 1);
    ASSERT_EQ(analyze("x = 1\n" + c.overflows + "\ny = 2\n"), 4);
    EXPECT_EQ(detail(), c.detail);
    EXPECT_EQ(texts(1), (Texts{"x", "=", "1"}));
    EXPECT_EQ(texts(2), (Texts{"???InvalidRecord???"}));
    EXPECT_EQ(token(record(2).FirstT).Class, hlyd::TokenClass::Invalid);
    EXPECT_EQ(tables().RecordCount, 3) << "the marker, then the sentinel; nothing after is read";
    EXPECT_EQ(tables().TokenCount, 4);
    expectConsistentTables();
    EXPECT_NE(readLog().find("The following error occurred in proc ReadRecordExtractTokens reading record:2. \n===>" +
                             c.logged),
              std::string::npos);
}

const std::string kTooBig = "Record too big -- greater than 2048 characters";

INSTANTIATE_TEST_SUITE_P(
        Lines, LineLimitTest,
        ::testing::Values(LineLimitCase{"Length", "s = \"" + std::string(2042, 'a') + "\"", 3,
                                        "s = \"" + std::string(2043, 'a') + "\"", -2, kTooBig},
                          LineLimitCase{"Tokens", std::string(1996, ','), 1996, std::string(1997, ','), -3,
                                        "Record too complex -- contains more than 2000 tokens"},
                          LineLimitCase{"LengthAndTokens", "", 0, std::string(2100, ','), -2, kTooBig}),
        [](const ::testing::TestParamInfo<LineLimitCase>& info) { return std::string(info.param.name); });

TEST_F(BadInputTest, TokenLimitOfAFile) {
    // 97 tokens a line: 5154 lines fill 499938 tokens, the next line would pass 500000.
    std::string line = "a";
    for (int i = 0; i < 48; ++i) line += ",a";
    ASSERT_EQ(analyze(lines(line, 6200)), 4);
    EXPECT_EQ(detail(), -4);
    EXPECT_EQ(tables().TokenCount, 5154 * 97 + 1);
    EXPECT_EQ(texts(5154).size(), 97u);
    EXPECT_EQ(token(record(5154).LastT).text(), "a");
    EXPECT_EQ(texts(5155), (Texts{"???InvalidRecord???"}));
    EXPECT_EQ(tables().RecordCount, 5156);
    expectConsistentTables();
}

// A comment continued line after line is never tokenized, and so never grows the tables: past the
// bound of Records() the read fails like any other, and what was read stays.
TEST_F(BadInputTest, EndlessContinuedComment) {
    ASSERT_EQ(analyze("' start _\n" + lines("  more _", 3100)), 4);
    EXPECT_EQ(detail(), 9);
    EXPECT_EQ(texts(3000), (Texts{"  more "}));
    EXPECT_EQ(texts(3001), (Texts{"???InvalidRecord???"}));
    EXPECT_EQ(tables().RecordCount, 3002);
    expectConsistentTables();
}

TEST_F(BadInputTest, NulAndHighBytesInLines) {
    ASSERT_EQ(analyze("ab\0cd = 1\n"s
                      "s = \"a\0b\"\n"s
                      "y\xE9 = \xFF\x80\n"
                      "\xE9x = 1\n"
                      "\0\n"s),
              11);
    // A NUL inside a line ends a word and stays on it.
    EXPECT_EQ(texts(1), (Texts{"ab\0"s, "cd", "=", "1"}));
    EXPECT_EQ(texts(2), (Texts{"s", "=", "\"a\0\""s, "b", "\"\0\""s}));
    EXPECT_EQ(texts(3), (Texts{"y\xE9", "=", "\xFF\x80"}));
    EXPECT_EQ(token(record(3).FirstT).Class, hlyd::TokenClass::Identifier);
    EXPECT_EQ(token(record(4).FirstT).Class, hlyd::TokenClass::Operator);
    expectConsistentTables();
}

TEST_F(BadInputTest, GarbageNeverCrashesOrHangs) {
    std::mt19937 random(19980827);
    std::string bytes(200000, '\0');
    for (char& c : bytes) c = static_cast<char>(random() & 0xFF);
    int result = analyze(bytes);
    EXPECT_TRUE(result == 11 || result == 4) << result;
    EXPECT_GT(tables().RecordCount, 100);
    expectConsistentTables();

    // Only the characters that the rules treat specially, densely packed.
    const std::string alphabet = "\"#:_\\!'&.+-<>=()  \tabREMTypeEnd01\r\n\n";
    std::string dense(100000, ' ');
    for (char& c : dense) c = alphabet[random() % alphabet.size()];
    result = analyze(dense);
    EXPECT_TRUE(result == 11 || result == 4) << result;
    expectConsistentTables();

    const std::vector<std::string> oddFiles = {"_", "\\",      ":",  "\"",       "#",    "REM _", "' _",   "x = 1 _",
                                               "!", "_\n_\n_", ":=", "End Type", "Type", "\r",    "\n\n\n"};
    for (const std::string& text : oddFiles) {
        EXPECT_EQ(analyze(text), 11) << text;
        expectConsistentTables();
    }
}

TEST_F(BadInputTest, AllLineEndsReadTheSame) {
    const std::string body = "Sub S()|  x = 1 ' c||  y = \"a\" _|    & b|End Sub|";
    auto withEnds = [&](const std::string& end) {
        std::string text;
        for (char c : body) text += c == '|' ? end : std::string(1, c);
        return text;
    };
    ASSERT_EQ(analyze(withEnds("\r\n")), 11);
    std::vector<Texts> expected;
    for (std::int32_t r = 1; r <= tables().RecordCount; ++r) expected.push_back(texts(r));
    ASSERT_EQ(expected.size(), 7u);
    for (const char* end : {"\n", "\r"}) {
        ASSERT_EQ(analyze(withEnds(end)), 11);
        std::vector<Texts> got;
        for (std::int32_t r = 1; r <= tables().RecordCount; ++r) got.push_back(texts(r));
        EXPECT_EQ(got, expected) << (end[0] == '\n' ? "LF" : "CR");
    }
}

TEST_F(BadInputTest, EmptyFileEndsAtOnce) {
    EXPECT_EQ(analyze(""), 11);
    EXPECT_EQ(tables().RecordCount, 0);
    EXPECT_EQ(tables().TokenCount, 0);

    // Element 0 of each table stays blank through an analysis.
    ASSERT_EQ(analyze("Sub S()\n  x = 1: y = 2\nEnd Sub\n"), 11);
    EXPECT_EQ(record(0).FirstT + record(0).FirstS + statement(0).FirstToken, 0);
    EXPECT_TRUE(token(0).text().empty());
}

TEST_F(BadInputTest, TablesGrowPastTheMargin) {
    hlyd::SourceFile file;
    file.openText(lines("x = 1", 2760));
    hlyd::BabInitFile(tables(), "6");
    hlyd::BasiclanModule& m = hlyd::basiclan();
    while (tables().RecordCount < 2751) {
        hlyd::BabParseRecord(file, tables());
        ASSERT_EQ(status(), 0);
        if (tables().RecordCount == 2750) {
            EXPECT_EQ(m.RecordsUBound, 3000) << "record 2750 is within the margin";
            EXPECT_EQ(m.StatementsUBound, 3000);
        }
    }
    EXPECT_EQ(m.RecordsUBound, 6000);
    EXPECT_EQ(m.StatementsUBound, 6000);
    EXPECT_EQ(tables().Records.UBound(), 6000);
    EXPECT_EQ(texts(2751), (Texts{"x", "=", "1"}));
    EXPECT_EQ(record(2751).FirstS, 2751);

    // The sentinel after line 2750 lies past the margin: the table is cut to end exactly at it.
    ASSERT_EQ(analyze(lines("x = 1", 2750)), 11);
    EXPECT_EQ(tables().RecordCount, 2751);
    EXPECT_EQ(m.RecordsUBound, 2751);
    EXPECT_EQ(tables().Records.UBound(), 2751);
    EXPECT_EQ(texts(2750), (Texts{"x", "=", "1"}));
}

TEST_F(BadInputTest, HugeLineEndsTheFileWithoutHoldingIt) {
    std::string path =
            hlyd::test::writeTempFile("huge-line.bas", "x = 1\r\n" + std::string(8 << 20, 'a') + "\r\ny = 2\r\n");
    hlyd::SourceFile file;
    ASSERT_EQ(file.open(path), 0);
    hlyd::BabInitFile(tables(), "6");
    do hlyd::BabParseRecord(file, tables());
    while (status() == 0);
    EXPECT_EQ(status(), 4);
    EXPECT_EQ(detail(), -2);
    EXPECT_EQ(texts(1), (Texts{"x", "=", "1"}));
    EXPECT_EQ(texts(2), (Texts{"???InvalidRecord???"}));
    EXPECT_LT(file.bytesHeld(), 128u * 1024) << "the reader held the long line";
}

// A FIFO, a device or a directory named as a file is never opened (a FIFO would wait for a
// writer, a device never end), and what is told is the true reason, not that it is missing.
TEST_F(BadInputTest, NoRegularFileIsRefusedForWhatItIs) {
    std::string fifo = hlyd::test::writeTempFile("pipe.bas", "") + ".fifo";
    std::filesystem::remove(fifo);
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0644), 0);
    for (const std::string& name : {fifo, std::string("/dev/zero")}) {
        ui.shown.clear();
        std::string dialect;
        hlyd::BabValidateFile(name, dialect);
        EXPECT_EQ(status(), 7) << name;
        ASSERT_EQ(ui.shown.size(), 1u);
        EXPECT_EQ(ui.shown[0].text, "The following error occurred processing " + name + ".\n\nNot a regular file");
        EXPECT_FALSE(hlyd::FileExists(name)) << name;
        hlyd::SourceFile file;
        EXPECT_EQ(file.open(name), hlyd::os::kNotRegularFile);
    }
    ui.shown.clear();
    hlyd::theLog().LogOpen(fifo, 1);
    EXPECT_FALSE(hlyd::theLog().isOpen());
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_NE(ui.shown[0].text.find("due to the following error:\nNot a regular file"), std::string::npos);
    std::filesystem::remove(fifo);
}

TEST_F(BadInputTest, TraceGivesTheDialectAlsoWhenTheFileFails) {
    hlyd::theLog().LogOpen(logPath(), 1);
    hlyd::theDebug().TracePackages = true;
    std::string dialect;
    hlyd::BabValidateFile(hlyd::test::writeTempFile("trace-empty.bas", ""), dialect);
    EXPECT_EQ(status(), 4);
    EXPECT_NE(readLog().find("Dialect=<?>"), std::string::npos);
}

// The first line that is not blank tells source from anything else, and which dialect it is in.
struct FirstLineCase {
    const char* name;
    std::optional<std::string> content;  // none: there is no such file
    std::string dialect;
    int status;
    int detail;
    std::string told = "";  // what the user is shown, "@" standing for the file's path
};

void PrintTo(const FirstLineCase& c, std::ostream* os) { *os << c.name; }

class FirstLineTest : public BadInputTest, public ::testing::WithParamInterface<FirstLineCase> {};

TEST_P(FirstLineTest, DecidesSourceAndDialect) {
    const FirstLineCase& c = GetParam();
    std::string path = hlyd::test::writeTempFile(std::string(c.name) + ".bas", c.content.value_or(""));
    if (!c.content) std::filesystem::remove(path);
    std::string dialect = "unset";
    hlyd::BabValidateFile(path, dialect);
    EXPECT_EQ(dialect, c.dialect);
    EXPECT_EQ(status(), c.status);
    EXPECT_EQ(detail(), c.detail);
    if (c.told.empty()) {
        EXPECT_TRUE(ui.shown.empty());
    } else {
        ASSERT_EQ(ui.shown.size(), 1u);
        EXPECT_EQ(ui.shown[0].text, c.told.substr(0, c.told.find('@')) + path + c.told.substr(c.told.find('@') + 1));
    }
}

const std::string kBinary = "Module BabValidateFile diagnosed VBErr=14 on file @";

INSTANTIATE_TEST_SUITE_P(
        Files, FirstLineTest,
        ::testing::Values(
                FirstLineCase{"FormAfterBlankLines", lines("", 10) + "VERSION 5.00\nBegin VB.Form F\n", "6", 0, 0},
                FirstLineCase{"Version2", "VERSION 2.00\n", "3", 0, 0},
                FirstLineCase{"Version4WithCrLf", "VERSION 4.00\r\n", "4", 0, 0},
                FirstLineCase{"Class", "VERSION 1.0 CLASS\n", "6", 0, 0},
                FirstLineCase{"VersionOnly", "VERSION 1.0\n", "?", 0, 0},
                FirstLineCase{"Attribute", "Attribute VB_Name = \"Module1\"\n", "6", 0, 0},
                FirstLineCase{"AttributeOfFiveWords", "Attribute VB_Name  = x\n", "?", 0, 0},  // two blanks, five words
                FirstLineCase{"Code", "   \n\nOption Explicit\n", "?", 0, 0},
                FirstLineCase{"Comment", "' a comment\n", "?", 0, 0},
                FirstLineCase{"NotSource", "Public Foo\n", "?", 20, 1},
                FirstLineCase{"IndentedVersion", "  VERSION 5.00\n", "?", 20, 1},  // its first word is empty
                FirstLineCase{"BlankLinesOnly", lines("   ", 5), "?", 4, 1}, FirstLineCase{"Empty", "", "?", 4, 1},
                FirstLineCase{"Nul", "VERSION\0 5.00\n"s, "?", 4, 2, kBinary},
                FirstLineCase{"HighByte", "\n\nOption \xFF\n", "?", 4, 2, kBinary},
                FirstLineCase{"TooLong", std::string(3000, 'A'), "?", 4, 2, kBinary},
                // Exactly 2048 characters is no binary, and a blank line of any length is skipped.
                FirstLineCase{"Longest", "'" + std::string(2047, 'a'), "?", 0, 0},
                FirstLineCase{"LongBlankThenForm", std::string(3000, ' ') + "\nVERSION 5.00\n", "6", 0, 0},
                FirstLineCase{"LongBlankThenTooLong", std::string(3000, ' ') + "x\n", "?", 4, 2, kBinary},
                FirstLineCase{"Missing", std::nullopt, "?", 7, 0,
                              "The following error occurred processing @.\n\nFile not found"}),
        [](const ::testing::TestParamInfo<FirstLineCase>& info) { return std::string(info.param.name); });

}  // namespace
