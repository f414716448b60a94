#include "html/record_plan.h"

#include <algorithm>
#include <string_view>

#include "display/token_layout.h"
#include "files/file_table.h"
#include "files/navigation.h"
#include "html/html_records.h"

namespace hlyd {

namespace {

// The look-up of a record's procedure is a search of them all; the records come in order, so
// nearly always the answer is the procedure of the record before, which is seen from its
// neighbour alone. Only a record past the next procedure's start, or tied to a record there,
// needs the search.
bool stillInProc(const SourceTables& t, std::int32_t record, std::int32_t proc) {
    const std::vector<ProcEntry>& procs = yProc();
    if (proc < 0 || static_cast<std::size_t>(proc) + 1 >= procs.size()) return false;
    std::int32_t tiedTo = record <= t.Records.UBound() ? t.Records[record].TiedTo : 0;
    std::int32_t reach = std::max(record, tiedTo);
    return reach < procs[static_cast<std::size_t>(proc) + 1].FirstRecord &&
           (proc == 0 || procs[static_cast<std::size_t>(proc)].FirstRecord <= reach);
}

}  // namespace

// The procedure part of a record: a heading's first line anchors the procedure, a heading
// continued over records steps the index back, so that its last line is found again.
RecordJob RecordPlanner::plan(std::int32_t record, std::int32_t firstToken, std::int32_t& procIndex) {
    RecordJob job;
    job.record = record;
    job.firstToken = firstToken;
    // Looked up here, in order: the look-up fills in a record without statements from the one before.
    job.governing = &governingStatement(record);
    const Record& r = t_.Records[record];
    bool lastContinued = r.LastT >= 1 && (t_.Tokens[r.LastT].Continued & 1);
    if (procIndex < 0 || job.governing->Class == StatementClass::Blank) return job;
    procIndex = std::min(procIndex, static_cast<std::int32_t>(yProc().size() - 1));
    if (headingPending_) {
        job.closesHeading = !lastContinued;
        headingPending_ = false;
    } else {
        job.procAnchor = procIndex;
    }
    if (lastContinued) {
        job.headingContinues = true;
        headingPending_ = true;
        --procIndex;
    }
    return job;
}

RecordPlanner::RecordPlanner() : t_(theSourceTables()) {}

bool RecordPlanner::next(std::vector<RecordJob>& jobs, std::size_t count) {
    const std::int32_t upper = static_cast<std::int32_t>(yProc().size() - 1);
    for (; jobs.size() < count && counter_ <= t_.RecordCount && t_.Records[counter_].FirstT != 0; ++counter_) {
        const Record& r = t_.Records[counter_];
        const Statement& s = t_.Statements[r.FirstS];
        std::int32_t firstToken = firstIndentedToken(r);
        if (!shownByView(s)) continue;
        bool startsProc = false;
        if (currentProc_ >= 0 && currentProc_ <= upper) {
            if (counter_ > yProc()[currentProc_].FirstRecord && !stillInProc(t_, counter_, currentProc_))
                HlydPCGetAssociatedProc(counter_, currentProc_);
            startsProc = counter_ == yProc()[currentProc_].FirstRecord;
        }
        if (s.Class != StatementClass::ProcStart && !startsProc) {
            std::int32_t none = -1;
            jobs.push_back(plan(counter_, firstToken, none));
        } else {
            jobs.push_back(plan(counter_, firstToken, currentProc_));
            if (currentProc_ < 0) currentProc_ = 0;
        }
    }
    return !jobs.empty();
}

}  // namespace hlyd
