#include <fstream>
#include <sstream>

#include "base/base_state.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "platform/session.h"
#include "test_support.h"

namespace hlyd::test {
namespace {

class LogTest : public ::testing::Test {
protected:
    void SetUp() override {
        setUi(&ui);
        setClock(&clock);
        clock.ticks = 1000;
        currentSession().renew();
    }
    void TearDown() override {
        theLog().LogClose();
        setUi(nullptr);
        setClock(nullptr);
    }
    std::string openAndRead() {
        std::string path = writeTempFile("log_test.log", "");
        theLog().LogOpen(path, 1);
        theLog().LogClose();
        std::ifstream in(path);
        std::stringstream all;
        all << in.rdbuf();
        return all.str();
    }
    ScriptedUi ui;
    FixedClock clock;
};

TEST_F(LogTest, TraceLinesShowElapsedMillisecondsAndDepth) {
    clock.ticks = 1042;  // 42 ms after the log was made
    theLog().LogTraceEnter("BabInit");
    theLog().LogTraceEnter("->Inner", "cls", "info");
    theLog().LogTraceExit("Inner");
    theLog().LogTraceExit("BabInit");
    theLog().LogTraceExit("BabInit");  // an exit too many stays at depth 0
    theLog().LogData("");
    theLog().LogTraceEnter("x");  // one character: no mark, a plain line
    std::string text = openAndRead();
    EXPECT_NE(text.find("\n0000042, 001, ->BabInit\n"), std::string::npos) << text;
    EXPECT_NE(text.find("\n0000042, 002, ->Inner: cls: info\n"), std::string::npos);
    EXPECT_NE(text.find("\n0000042, 001, <-Inner\n"), std::string::npos);
    EXPECT_NE(text.find("\n0000042, 000, <-BabInit\n0000042, 000, <-BabInit\n \n x\n"), std::string::npos);
}

TEST_F(LogTest, RingKeepsTheLastHundredLinesOldestFirst) {
    for (int i = 1; i <= 150; ++i) theLog().LogData("line " + std::to_string(i));
    std::string text = openAndRead();
    std::size_t start = text.find("-----Emitting Queued Messages-----");
    ASSERT_NE(start, std::string::npos);
    std::string queued = text.substr(start);
    EXPECT_EQ(queued.find(" line 50\n"), std::string::npos);  // overwritten
    std::size_t first = queued.find(" line 51\n");
    std::size_t last = queued.find(" line 150\n");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(last, std::string::npos);
    EXPECT_LT(first, last);
    EXPECT_NE(queued.find("-----End Emitting Queued Messages-----"), std::string::npos);
    // The header comes before the queue, and the queue is emptied: a second open emits nothing.
    EXPECT_LT(text.find("Logfile "), start);
    EXPECT_EQ(openAndRead().find("Emitting Queued"), std::string::npos);

    // Without queueing, lines before the file are lost.
    baseState().log.reset();
    theLog().setQueueing(false);
    theLog().LogData("lost line");
    EXPECT_EQ(openAndRead().find("lost line"), std::string::npos);
}

TEST_F(LogTest, FailedOpenTellsTheUserAndKeepsQueueing) {
    theLog().LogOpen("/nonexistent-dir/sub/x.log", 1);
    EXPECT_FALSE(theLog().isOpen());
    ASSERT_EQ(ui.shown.size(), 1u);
    EXPECT_EQ(ui.shown[0].title, "Halyard Open Error");
    EXPECT_EQ(ui.shown[0].text.rfind("Unable to open Log-file\n\n/nonexistent-dir/sub/x.log", 0), 0u);
    EXPECT_NE(openAndRead().find("=====>\nUnable to open Log-file"), std::string::npos);
}

TEST_F(LogTest, CallListNamesTheOpenProcedures) {
    std::string result;
    theLog().LogGetProcs(result);
    EXPECT_EQ(result, "");
    theLog().LogTraceEnter("Outer");
    theLog().LogTraceEnter("Inner");
    theLog().LogGetProcs(result);
    EXPECT_EQ(result, "Procedure Call-list...\n->Outer\n->Inner");

    // A depth beyond three digits widens, and the stack grows.
    for (int i = 0; i < 998; ++i) theLog().LogTraceEnter("Proc");
    theLog().LogTraceEnter("Deep");
    EXPECT_NE(openAndRead().find(", 1001, ->Deep"), std::string::npos);
}

TEST_F(LogTest, TraceScopeCostsNothingWhenOff) {
    {
        TraceScope off(false, "Quiet");
        TraceScope on(true, "Loud");
        EXPECT_EQ(theLog().depth(), 1);
    }
    EXPECT_EQ(theLog().depth(), 0);
    std::string text = openAndRead();
    EXPECT_EQ(text.find("Quiet"), std::string::npos);
    EXPECT_NE(text.find("->Loud"), std::string::npos);
    EXPECT_NE(text.find("<-Loud"), std::string::npos);
}

TEST_F(LogTest, LogAllSwitchesAllButClassTraces) {
    cDebug& d = theDebug();
    d.TraceClasses = false;
    d.SetLogAll();
    EXPECT_TRUE(d.TraceApplication && d.TracePackages && d.TraceEvents && d.TraceMouseMove && d.TraceOther);
    EXPECT_FALSE(d.TraceClasses);
    d.TraceClasses = true;
    d.UnsetLogAll();
    EXPECT_FALSE(d.TraceApplication || d.TracePackages || d.TraceEvents || d.TraceMouseMove);
    EXPECT_TRUE(d.TraceClasses);
    std::string text = openAndRead();
    EXPECT_NE(text.find(" Logging enabled\n"), std::string::npos);
    EXPECT_NE(text.find(" Logging disabled\n"), std::string::npos);
}

}  // namespace
}  // namespace hlyd::test
