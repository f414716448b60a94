// Finding a text in the lines of a file as read: match case, whole word, both directions, the
// wrap past an end, Windows-1252 letters, records passed over; and the lines kept byte for byte.
#include <gtest/gtest.h>

#include "analysis/record_texts.h"
#include "display/drawn_stretch.h"
#include "display/text_search.h"
#include "test_support.h"

namespace hlyd {
namespace {

RecordTexts textsOf(const std::vector<std::string>& lines) {
    RecordTexts texts;
    for (std::size_t i = 0; i < lines.size(); ++i) texts.set(static_cast<std::int32_t>(i + 1), lines[i]);
    return texts;
}

const RecordTexts& module() {
    static const RecordTexts texts = textsOf({
            "Option Explicit",
            "' Total of the order",
            "Public Function OrderTotal(ByVal total As Long) As Long",
            "    Dim subtotal As Long",
            "    subtotal = Total + 1 ' total again",
            "    OrderTotal = subtotal",
            "End Function",
            "' Stra\xDF"
            "e \xC4rger",
    });
    return texts;
}

struct SearchCase {
    const char* name;
    const char* query;
    bool matchCase, wholeWord;
    TextPlace from;
    bool forward;
    bool found;
    TextPlace at;
    bool wrapped;
};

class FindFrom : public ::testing::TestWithParam<SearchCase> {};

TEST_P(FindFrom, FindsTheExpectedPlace) {
    const SearchCase& c = GetParam();
    FindOutcome outcome = findFrom(module(), c.query, {c.matchCase, c.wholeWord}, c.from, c.forward);
    ASSERT_EQ(outcome.found, c.found);
    if (!c.found) return;
    EXPECT_EQ(outcome.hit.record, c.at.record);
    EXPECT_EQ(outcome.hit.column, c.at.column);
    EXPECT_EQ(outcome.hit.length, static_cast<std::int32_t>(std::string(c.query).size()));
    EXPECT_EQ(outcome.wrapped, c.wrapped);
}

INSTANTIATE_TEST_SUITE_P(
        Cases, FindFrom,
        ::testing::Values(
                SearchCase{"AnyCaseInAComment", "total", false, false, {1, 0}, true, true, {2, 2}, false},
                SearchCase{"MatchCasePassesOtherCases", "total", true, false, {1, 0}, true, true, {3, 33}, false},
                SearchCase{"WholeWordPassesPartsOfNames", "total", false, true, {3, 0}, true, true, {3, 33}, false},
                SearchCase{"WholeWordAndCase", "Total", true, true, {3, 0}, true, true, {5, 15}, false},
                SearchCase{"AHitAtTheStartIsFound", "Total", false, false, {5, 15}, true, true, {5, 15}, false},
                SearchCase{"ForwardWrapsToTheTop", "Explicit", false, false, {2, 0}, true, true, {1, 7}, true},
                SearchCase{"BackwardStaysOnItsLine", "total", false, false, {5, 15}, false, true, {5, 7}, false},
                SearchCase{"BackwardFromTheNextLine", "subtotal", false, true, {6, 0}, false, true, {5, 4}, false},
                SearchCase{"BackwardWrapsToTheEnd", "Option", false, false, {1, 0}, false, true, {1, 0}, true},
                SearchCase{"WindowsLettersInAnyCase", "\xE4rger", false, false, {1, 0}, true, true, {8, 9}, false},
                SearchCase{"WindowsLettersMatchCase", "\xE4rger", true, false, {1, 0}, true, false, {}, false},
                SearchCase{"NoSuchText", "Nothing", false, false, {1, 0}, true, false, {}, false},
                SearchCase{"NoTextAcrossLines", "Explicit'", false, false, {1, 0}, true, false, {}, false},
                SearchCase{"FromPastTheEnd", "End", false, true, {99, 0}, true, true, {7, 0}, true}),
        [](const ::testing::TestParamInfo<SearchCase>& info) { return std::string(info.param.name); });

TEST(FindAll, ListsEachHitInOrderAndPassesRecordsNotSearched) {
    auto places = [](const std::vector<TextHit>& hits) {
        std::string s;
        for (const TextHit& h : hits) s += std::to_string(h.record) + ":" + std::to_string(h.column) + " ";
        return s;
    };
    EXPECT_EQ(places(findAll(module(), "total", {false, true})), "2:2 3:33 5:15 5:27 ");
    EXPECT_EQ(places(findAll(module(), "total", {false, true}, [](std::int32_t r) { return r != 5 && r != 2; })),
              "3:33 ");
    // Hits follow each other without overlapping.
    EXPECT_EQ(places(findAll(textsOf({"aaaa"}), "aa", {})), "1:0 1:2 ");
    EXPECT_TRUE(findAll(module(), "", {}).empty());
    // A record passed over is passed after the wrap as well.
    FindOutcome outcome =
            findFrom(module(), "Total", {true, true}, {3, 0}, true, [](std::int32_t r) { return r != 5; });
    EXPECT_TRUE(outcome.wrapped);
    EXPECT_EQ(outcome.hit.record, 2);
}

TEST(RecordTexts, KeepsEachLineAndFindsTheRecordOfAnOffset) {
    RecordTexts texts;
    texts.set(1, "a");
    texts.set(3, "ccc");  // record 2 was a reader's marker: it stays empty
    EXPECT_EQ(texts.count(), 3);
    EXPECT_EQ(texts.line(2), "");
    EXPECT_EQ(texts.line(3), "ccc");
    EXPECT_EQ(texts.buffer(), "a\n\nccc\n");
    EXPECT_EQ(texts.recordAt(0), 1);
    EXPECT_EQ(texts.recordAt(1), 1);  // the LF after a line is its record's
    EXPECT_EQ(texts.recordAt(2), 2);
    EXPECT_EQ(texts.recordAt(5), 3);
    texts.set(2, "bb");  // given again: it and those after it are replaced
    EXPECT_EQ(texts.count(), 2);
    EXPECT_EQ(texts.line(2), "bb");
    EXPECT_EQ(texts.line(4), "");
}

// The tokens' texts are views of the lines as kept: a view stays whole while the buffer outgrows
// its room, unreserved, and while a record is replaced.
TEST(RecordTexts, ViewsStayWholeAsTheBufferGrows) {
    RecordTexts texts;
    std::vector<std::pair<std::string, std::string_view>> views;
    for (int record = 1; record <= 400; ++record) {
        std::string line = "line " + std::to_string(record) + std::string(static_cast<std::size_t>(record % 7), 'x');
        views.emplace_back(line, texts.set(record, line));
    }
    views.emplace_back("again", texts.set(2, "again"));
    for (const auto& [line, view] : views) EXPECT_EQ(view, line);
    EXPECT_EQ(texts.line(2), "again");
    EXPECT_EQ(texts.count(), 2);
}

class LinesAsRead : public test::AnalysisTest {};

// What the view copies and searches is each line byte for byte, whatever the tokens made of it,
// and every token's place in its line is known.
TEST_F(LinesAsRead, TheAnalysisKeepsEveryLineAsItStands) {
    const std::vector<std::string> lines = {
            "Sub Main()\t' tab before a comment  ",
            "    x = 1 + _",
            "        2",
            "    s = \"open string",
            "    Rem\tnote",
            "    ' comment goes on _",
            "  on the next line",
            "   ",
            "End Sub",
    };
    std::string text;
    for (std::size_t i = 0; i < lines.size(); ++i) text += lines[i] + (i % 2 ? "\r\n" : "\n");
    analyze(text);
    const RecordTexts& kept = *tables().Texts;
    for (std::size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(kept.line(static_cast<std::int32_t>(i + 1)), lines[i]) << "record " << i + 1;
    for (std::int32_t r = 1; r <= static_cast<std::int32_t>(lines.size()); ++r) {
        std::vector<std::int32_t> columns = tokenColumns(tables(), r);
        const Record& rec = record(r);
        ASSERT_EQ(columns.size(), static_cast<std::size_t>(rec.LastT - rec.FirstT + 1));
        for (std::int32_t i = rec.FirstT; i <= rec.LastT; ++i) {
            std::string_view t = token(i).text();
            std::string_view line = kept.line(r);
            std::size_t column = static_cast<std::size_t>(columns[static_cast<std::size_t>(i - rec.FirstT)]);
            // The reader changes a "Rem"'s tab to a blank and closes an open string: compare the
            // part it keeps.
            std::size_t same = std::min<std::size_t>(t.size(), 3);
            EXPECT_EQ(line.substr(column, same), t.substr(0, same)) << "record " << r << " token " << t;
        }
    }
}

}  // namespace
}  // namespace hlyd
