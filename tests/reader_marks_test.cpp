// The places a reader of a printed file can go to, on the recording printer: every file's first
// page and every procedure's declaration is named where it prints, and every entry of a procedure
// table and of the table of contents links to what it lists.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "files/file_table.h"
#include "platform/printer.h"
#include "printing/print_run.h"
#include "printing/print_state.h"
#include "printing/printer_start.h"
#include "printing/recording_printer.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"
#include "test_support.h"

namespace hlyd {
namespace {

class ReaderMarksTest : public test::RecorderTest {
protected:
    void SetUp() override {
        RecorderTest::SetUp();
        bareHeadings();
        HlydSettings& s = hlydSettings();
        s.TableOfContents = true;
        s.ProcContentsPrint = true;
    }

    // The type of the page each event stands on.
    std::vector<int> pageTypes() const {
        std::vector<int> types;
        int type = 0;
        for (const PrintEvent& e : events) {
            if (e.kind == PrintEvent::PageStart) type = e.type;
            types.push_back(type);
        }
        return types;
    }
    // The text events of a page that lie between two heights.
    std::vector<std::string> textsBetween(const PrintEvent& at, float top, float bottom) const {
        std::vector<std::string> texts;
        for (const PrintEvent& e : events)
            if (e.kind == PrintEvent::Text && e.doc == at.doc && e.page == at.page && e.y1 >= top && e.y1 < bottom)
                texts.push_back(e.text);
        return texts;
    }
};

bool holds(const std::vector<std::string>& texts, const std::string& wanted) {
    for (const std::string& t : texts)
        if (t.find(wanted) != std::string::npos) return true;
    return false;
}

TEST_F(ReaderMarksTest, FilesAndDeclarationsAreNamedWhereTheyPrintAndEveryContentsEntryLinksThere) {
    // Enough procedures that the second's declaration goes to the next page, after a comment tied
    // to it: the place is the declaration's line, not the comment's, on the page it went to.
    pageSettings().Margins.Bottom = 11000;
    InitPrinter();
    showSource("first.bas", "Dim A\n" + test::procedures(1, 8) + "' Comment of P2\nSub P2()\nEnd Sub\n");
    showSource("second.bas", test::procedures(1, 1));
    events.clear();
    runPrint({});
    std::vector<int> types = pageTypes();

    // Named: each file at the top of its first page, then its entries in order, each at the line
    // where its declaration's first word printed.
    std::vector<std::string> names;
    std::map<std::string, PrintEvent> places;
    for (std::size_t i = 0; i < events.size(); ++i) {
        const PrintEvent& e = events[i];
        if (e.kind != PrintEvent::Destination) continue;
        EXPECT_EQ(types[i], kPageCode) << e.text;
        names.push_back(e.text);
        places[e.text] = e;
    }
    std::vector<std::string> expected = {"file1", "file1.proc0", "file1.proc1", "file1.proc2", "file2", "file2.proc0"};
    ASSERT_EQ(names, expected);
    EXPECT_EQ(places["file1"].title, "first.bas");
    EXPECT_EQ(places["file1"].level, 0);
    EXPECT_EQ(places["file1"].y1, 0);
    EXPECT_EQ(places["file2"].title, "second.bas");
    EXPECT_EQ(places["file1.proc1"].title, "P1");
    EXPECT_EQ(places["file1.proc1"].level, 1);
    auto declaredAt = [&](const std::string& name, const std::string& word) {
        const PrintEvent& place = places[name];
        for (const PrintEvent& e : events)
            if (e.kind == PrintEvent::Text && e.text == word && e.doc == place.doc)
                return e.page == place.page && e.y1 == place.y1;
        return false;
    };
    EXPECT_TRUE(declaredAt("file1.proc0", "Dim"));
    EXPECT_TRUE(declaredAt("file1.proc1", "P1"));
    EXPECT_TRUE(declaredAt("file1.proc2", "P2"));
    EXPECT_GT(places["file1.proc2"].page, places["file1.proc1"].page);
    EXPECT_TRUE(declaredAt("file2.proc0", "P1"));

    // Linked: every procedure from its file's table and from the table of contents, every file
    // from the table of contents; each link lies over the entry's own text.
    std::map<std::string, int> fromTables, fromToc;
    for (std::size_t i = 0; i < events.size(); ++i) {
        const PrintEvent& link = events[i];
        if (link.kind != PrintEvent::Link) continue;
        ASSERT_EQ(types[i], kPageProcContents) << link.text;
        ASSERT_TRUE(places.count(link.text)) << link.text;
        EXPECT_LT(link.x1, link.x2);
        std::vector<std::string> covered = textsBetween(link, link.y1, link.y2);
        const std::string& title = places[link.text].title;
        std::string shown = title == "first.bas" || title == "second.bas" ? title
                            : title == "<Declarations>"                   ? title
                                                                          : "Sub " + title;
        EXPECT_TRUE(holds(covered, shown) || holds(covered, title)) << link.text << " over " << covered.size();
        bool inToc = link.doc == events.back().doc;
        ++(inToc ? fromToc : fromTables)[link.text];
    }
    for (const std::string& name : expected) {
        bool file = name.find(".proc") == std::string::npos;
        EXPECT_EQ(fromToc[name], 1) << name;
        EXPECT_EQ(fromTables[name], file ? 0 : 1) << name;
    }
}

}  // namespace
}  // namespace hlyd
