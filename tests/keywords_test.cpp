// The keyword table: the shipped data file, the checks made while reading a keyword file, and the
// cutting and searching of one dialect's table.
#include <cctype>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

#include "analysis/keyword_index.h"
#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/hlyd_error.h"
#include "test_support.h"

namespace hlyd {
namespace {

class KeywordTableTest : public test::AnalysisTest {
protected:
    // Loads the keyword file into a fresh module; returns the error number raised, 0 when none.
    int load(const std::string& path) {
        basiclan() = BasiclanModule{};
        try {
            BabInitFrom(path);
        } catch (const HlydError& e) {
            return e.Number;
        }
        return 0;
    }
    std::int32_t indexOf(const std::string& word) const {
        std::int32_t index = -1;
        SearchForKeyWord(word, index);
        return index;
    }
    const KeyWord& entry(const std::string& word) const {
        std::int32_t index = indexOf(word);
        EXPECT_NE(index, 0) << word << " is missing";
        return dialectKeyWord(index);
    }
};

TEST_F(KeywordTableTest, ShippedFileLoadsWithEveryLineAnEntry) {
    EXPECT_EQ(theDebug().BabStatus, 0);
    EXPECT_TRUE(ui.shown.empty());
    std::ifstream in(test::keywordFilePath());
    std::int32_t lines = 0;
    for (std::string line; std::getline(in, line);)
        if (line.find_first_not_of(" \t\r") != std::string::npos) ++lines;
    EXPECT_EQ(basiclan().KeyWordTotal, lines);
    ASSERT_NE(basiclan().LetKeyWord, 0);
    EXPECT_EQ(dialectKeyWord(basiclan().LetKeyWord).Word, "LET");
}

// The analysis compares these words by name, so the file must hold them with the flags the
// block and verb logic relies on.
TEST_F(KeywordTableTest, ShippedFileHoldsTheWordsTheAnalysisNeeds) {
    for (const char* w :
         {"ATTRIBUTE", "BEGIN",  "BEGINPROPERTY", "VERSION", "ENDPROPERTY", "CONST",    "DECLARE", "DIM",      "GLOBAL",
          "PRIVATE",   "PUBLIC", "REDIM",         "STATIC",  "EVENT",       "FUNCTION", "SUB",     "PROPERTY", "GET",
          "LET",       "SET",    "END",           "IF",      "ELSE",        "NEXT",     "GOSUB",   "GOTO",     "ON",
          "RESUME",    "ERROR",  "TYPE",          "ENUM"})
        EXPECT_EQ(entry(w).ClassCode, 'V') << w;
    EXPECT_NE(indexOf("THEN"), 0);
    for (const char* w : {"IF", "FOR", "DO", "WHILE", "SELECT", "WITH", "TYPE", "ENUM", "BEGIN", "BEGINPROPERTY"}) {
        EXPECT_TRUE(entry(w).Indent) << w;
        EXPECT_FALSE(entry(w).Outdent) << w;
    }
    for (const char* w : {"END", "NEXT", "LOOP", "WEND", "ENDPROPERTY"}) {
        EXPECT_TRUE(entry(w).Outdent) << w;
        EXPECT_FALSE(entry(w).Indent) << w;
    }
    for (const char* w : {"ELSE", "ELSEIF", "CASE"}) EXPECT_TRUE(entry(w).Indent && entry(w).Outdent) << w;
    for (const char* w : {"PUBLIC", "PRIVATE", "GLOBAL", "STATIC", "FRIEND"})
        EXPECT_TRUE(entry(w).ScanForVerb && entry(w).ClassOverride) << w;
    for (const char* w : {"SUB", "FUNCTION", "PROPERTY"}) EXPECT_FALSE(entry(w).Indent) << w;
}

TEST_F(KeywordTableTest, EntriesAreReadQuotedOrBareInAnyCase) {
    std::string path = test::writeTempFile("kw-good.KEY", "abs,*,b\n\"Dim\",\"*\",\"vn-y\"\n\"ZZZ\",\"4\",\"V\"\n");
    ASSERT_EQ(load(path), 0);
    EXPECT_EQ(theDebug().BabStatus, 0);
    EXPECT_EQ(basiclan().KeyWordTotal, 3);
    const KeyWord& abs = entry("ABS");
    EXPECT_EQ(abs.ClassCode, 'B');
    EXPECT_FALSE(abs.Indent || abs.Outdent || abs.ClassOverride || abs.KeepLeadingComments || abs.ScanForVerb);
    const KeyWord& dim = entry("dim");
    EXPECT_EQ(dim.ClassCode, 'V');
    EXPECT_FALSE(dim.Indent);
    EXPECT_TRUE(dim.ClassOverride);
    EXPECT_FALSE(dim.KeepLeadingComments || dim.ScanForVerb);
    const KeyWord& zzz = entry("ZZZ");  // the last entry of a tiny table is found too
    EXPECT_FALSE(zzz.Indent || zzz.Outdent || zzz.ClassOverride || zzz.KeepLeadingComments || zzz.ScanForVerb);
    EXPECT_EQ(basiclan().LetKeyWord, 0);  // a file without LET gives assignments no keyword
    BuildKeyWordsForDialect("3");
    EXPECT_EQ(indexOf("ZZZ"), 0);
}

TEST_F(KeywordTableTest, TableGrowsPastItsFirstAllocation) {
    std::ostringstream content;
    for (int i = 0; i < 4600; ++i) content << "\"W" << 10000 + i << "\",\"*\",\"V\"\n";
    ASSERT_EQ(load(test::writeTempFile("kw-big.KEY", content.str())), 0);
    EXPECT_EQ(basiclan().KeyWordTotal, 4600);
    EXPECT_EQ(basiclan().KeyWords.size(), 4601u);
    EXPECT_EQ(indexOf("W10000"), 1);
    EXPECT_EQ(indexOf("W14599"), 4600);
}

// A bad entry stops the reading with its number and name; a run that goes on knows no keywords.
struct BadEntry {
    std::string content;
    std::string fault;
    int entry;
    std::string word;
};

void PrintTo(const BadEntry& c, std::ostream* os) { *os << c.fault << " at entry " << c.entry; }

class BadKeywordFileTest : public KeywordTableTest, public ::testing::WithParamInterface<BadEntry> {};

TEST_P(BadKeywordFileTest, StopsReadingWithTheEntrysNumberAndName) {
    const BadEntry& c = GetParam();
    std::string path = test::writeTempFile("kw-bad.KEY", c.content);
    EXPECT_EQ(load(path), kInternalError);
    EXPECT_EQ(theDebug().BabStatus, 4);
    EXPECT_EQ(theDebug().BabStatusDetail, c.entry);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text, "BabInit\n" + path + "\n\nInvalid " + c.fault +
                                        "\n\nRecord=" + std::to_string(c.entry) + " KeyWord=|" + c.word + "|");
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Critical);
    analyze("Dim x\n");
    EXPECT_TRUE(token(1).is(IdentifierDetail::Name));
}

const std::string kGood = "\"ABC\",\"*\",\"V\"\n";

// The flags of an entry: a class letter in any of the five places is no flag value.
BadEntry badFlag(int place, const std::string& fault) {
    std::string flags = "V-----";
    flags[place] = 'X';
    return {kGood + "\"DEF\",\"*\",\"" + flags + "\"\n", fault, 2, "DEF"};
}

INSTANTIATE_TEST_SUITE_P(
        Entries, BadKeywordFileTest,
        ::testing::Values(BadEntry{kGood + kGood, "File sequence", 2, "ABC"},
                          BadEntry{kGood + "\"DEF\",\"*\",\"\"\n\"abc\",\"*\",\"\"\n", "File sequence", 3, "abc"},
                          BadEntry{"\"ABC\",\"\",\"V\"\n", "Dialect", 1, "ABC"},
                          BadEntry{kGood + "\"def\",\"*\",\"A\"\n", "Class-code", 2, "def"}, badFlag(1, "Indent-flag"),
                          badFlag(2, "Outdent-flag"), badFlag(3, "ClassOverride-flag"),
                          badFlag(4, "KeepLeadingComments-flag"), badFlag(5, "ScanForVerb-flag")),
        [](const ::testing::TestParamInfo<BadEntry>& info) {
            std::string name = info.param.fault;
            std::erase_if(name, [](char c) { return c == ' ' || c == '-'; });
            return name + std::to_string(info.index);
        });

TEST_F(KeywordTableTest, MissingFileIsFatalAndSaysWhereItBelongs) {
    std::string dir = std::filesystem::path(test::writeTempFile("kw-placeholder", "")).parent_path().string() + "/none";
    EXPECT_EQ(load(dir + "/BASICLAN.KEY"), kInternalError);
    EXPECT_EQ(theDebug().BabStatus, -7);
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].text, "The file BASICLAN.KEYwas not found in the directory \n" + dir +
                                        "\n\nBASICLAN.KEY is required for " + theAppInfo().Title +
                                        " to operate.\n\nPlease install this file in the directory " + dir);
    EXPECT_EQ(ui.shown[0].icon, MsgIcon::Critical);
}

TEST_F(KeywordTableTest, SecondInitDoesNothing) {
    std::int32_t total = basiclan().KeyWordTotal;
    EXPECT_NO_THROW(BabInitFrom("/nonexistent/BASICLAN.KEY"));
    EXPECT_EQ(theDebug().BabStatus, 1);
    EXPECT_EQ(basiclan().KeyWordTotal, total);
    EXPECT_TRUE(ui.shown.empty());
}

TEST_F(KeywordTableTest, DialectKeepsOnlyWordsOfItsVersionAndBefore) {
    std::int32_t all = basiclan().DialectKeyWordCount;
    BuildKeyWordsForDialect("4");
    EXPECT_FALSE(BabIsKeyWord("ENUM"));  // marked "5"
    EXPECT_TRUE(BabIsKeyWord("WITH"));   // marked "4"
    EXPECT_TRUE(BabIsKeyWord("DIM"));
    EXPECT_EQ(dialectKeyWord(basiclan().LetKeyWord).Word, "LET");
    BuildKeyWordsForDialect("3");
    EXPECT_FALSE(BabIsKeyWord("WITH"));
    EXPECT_LT(basiclan().DialectKeyWordCount, all);
    EXPECT_EQ(basiclan().DialectKeyWords[0].Word, std::string(1, '\0'));
}

TEST_F(KeywordTableTest, SearchAtTheEdgesOfTheTable) {
    std::int32_t count = basiclan().DialectKeyWordCount;
    EXPECT_EQ(indexOf(""), 0);
    EXPECT_EQ(indexOf(std::string(1, '\0')), 0);  // the sentinel is no keyword
    EXPECT_EQ(indexOf(basiclan().DialectKeyWords[1].Word), 1);
    EXPECT_EQ(indexOf(basiclan().DialectKeyWords[count - 1].Word), count - 1);
    EXPECT_EQ(indexOf("dim"), indexOf("DIM"));
    EXPECT_EQ(indexOf("DI"), 0);
    EXPECT_EQ(indexOf("DIMS"), 0);
}

// Every entry is found at its own place by its word in any letter case, and nothing that only
// begins or ends like an entry is found.
TEST_F(KeywordTableTest, EveryEntryIsFoundInAnyCase) {
    const std::vector<KeyWord>& table = basiclan().DialectKeyWords;
    for (std::int32_t k = 1; k < basiclan().DialectKeyWordCount; ++k) {
        std::string word = table[k].Word;
        std::string lower = word;
        for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        std::string mixed = word;
        mixed[0] = lower[0];
        SCOPED_TRACE(word);
        EXPECT_EQ(indexOf(word), k);
        EXPECT_EQ(indexOf(lower), k);
        EXPECT_EQ(indexOf(mixed), k);
        for (const std::string& near : {word.substr(0, word.size() - 1), word + "S"}) {
            if (std::int32_t found = indexOf(near); found != 0) {
                EXPECT_EQ(table[found].Word, near);
            }
        }
    }
}

// Letters of the upper half fold as the source's code page folds them.
TEST(KeyWordIndexTest, FoldsTheLettersOfTheUpperHalf) {
    KeyWordIndex index;
    index.build({std::string(1, '\0'), "\xC9T\xC9", "SUB", "\x8AKODA"});
    EXPECT_EQ(index.find("\xE9t\xE9"), 1);
    EXPECT_EQ(index.find("sub"), 2);
    EXPECT_EQ(index.find("\x9Akoda"), 3);
    EXPECT_EQ(index.find("su"), 0);
    EXPECT_EQ(index.find(std::string(1, '\0')), 0);
    EXPECT_EQ(index.find(""), 0);
    KeyWordIndex empty;
    EXPECT_EQ(empty.find("SUB"), 0);
    // Words alike in their length and their first, middle and last letters are still told apart.
    KeyWordIndex alike;
    alike.build({std::string(1, '\0'), "PRINT", "PAINT", "PRINTER"});
    EXPECT_EQ(alike.find("paint"), 2);
    EXPECT_EQ(alike.find("Print"), 1);
    EXPECT_EQ(alike.find("POINT"), 0);
    EXPECT_EQ(alike.find("PRINTER"), 3);
}

TEST_F(KeywordTableTest, RebuildingADialectKeepsIndexes) {
    std::vector<std::int32_t> before;
    for (const char* w : {"DIM", "LET", "YEAR", "ABS"}) before.push_back(indexOf(w));
    BuildKeyWordsForDialect("6");
    BuildKeyWordsForDialect("4");
    BuildKeyWordsForDialect("6");
    std::vector<std::int32_t> after;
    for (const char* w : {"DIM", "LET", "YEAR", "ABS"}) after.push_back(indexOf(w));
    EXPECT_EQ(after, before);
}

TEST_F(KeywordTableTest, UnknownDialectIsABadArgument) {
    for (const char* dialect : {"7", "", "*", "2"}) {
        SCOPED_TRACE(dialect);
        try {
            BuildKeyWordsForDialect(dialect);
            ADD_FAILURE() << "no error raised";
        } catch (const HlydError& e) {
            EXPECT_EQ(e.Number, kInternalError);
        }
        EXPECT_EQ(theDebug().BabStatus, 3);
        EXPECT_EQ(theDebug().BabStatusDetail, 1);
    }
    EXPECT_EQ(basiclan().CurrentDialect, "6");
    EXPECT_TRUE(BabIsKeyWord("ENUM"));
}

}  // namespace
}  // namespace hlyd
