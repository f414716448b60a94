#pragma once
// What the document shows of each record of a file, decided in the records' order before any
// text is made. The decisions carry state from record to record (the procedure a line belongs
// to, a heading continued over lines); once they are made, each line's text depends on its own
// record alone, so the lines can be made apart from the decisions.
#include <cstdint>
#include <vector>

#include "analysis/source_model.h"

namespace hlyd {

struct RecordJob {
    std::int32_t record = 0;
    std::int32_t firstToken = 0;  // past a line number, which keeps its place
    const Statement* governing = nullptr;
    std::int32_t procAnchor = -1;   // the procedure whose heading starts here, or -1
    bool closesHeading = false;     // the last line of a heading continued over lines
    bool headingContinues = false;  // a heading that goes on in the next record
};

// Walks the records of the file loaded now that the document shows, in order.
class RecordPlanner {
public:
    RecordPlanner();
    // Adds the next records' jobs until `jobs` holds `count`; false when none was left.
    bool next(std::vector<RecordJob>& jobs, std::size_t count);

private:
    RecordJob plan(std::int32_t record, std::int32_t firstToken, std::int32_t& procIndex);

    const SourceTables& t_;
    std::int32_t counter_ = 1;
    std::int32_t currentProc_ = 0;
    bool headingPending_ = false;
};

}  // namespace hlyd
