#include "files/project_dates.h"

#include <algorithm>
#include <optional>

#include "base/text_format.h"
#include "files/print_history.h"
#include "files/project_file.h"
#include "platform/os.h"

namespace hlyd {

namespace {

// The second field of an entry as the user reads it, when it is a date.
std::string lastRun(const std::string& entry) {
    if (!printingTimeOf(entry)) return {};
    return trimBlanks(entry.substr(entry.find('|') + 1));
}

MemberDateInfo datesOf(const std::string& file) {
    MemberDateInfo info;
    os::FileInfo there = os::fileInfo(file);
    std::string ours = historyEntry(file, kHistorySection);
    info.LastPrinted = lastRun(ours);
    info.LastGloss = lastRun(historyEntry(file, kSiblingHistorySection));
    // Our own history decides what is newer: the sibling's runs say nothing about our printing.
    std::optional<std::time_t> printed = printingTimeOf(ours);
    if (!there.exists()) {
        info.Newer = true;
        return info;
    }
    auto saved = static_cast<std::time_t>(there.modifiedSeconds);
    info.FileDate = formatDefaultDateTime(saved);
    info.Newer = !printed || *printed < saved;
    return info;
}

}  // namespace

void MemberDates::SetTMRInfo(cProjectFiles& projects) {
    std::size_t widest = 0;
    for (int p = 1; p <= projects.Count(); ++p) widest = std::max(widest, projects.Item(p).ProjectRecords.size());
    table_.assign(static_cast<std::size_t>(projects.Count()), std::vector<std::optional<MemberDateInfo>>(widest));
    for (int p = 1; p <= projects.Count(); ++p) {
        cProjectFile& project = projects.Item(p);
        if (project.FileType == 0) continue;
        for (int n = 1; n <= static_cast<int>(project.ProjectRecords.size()); ++n) {
            const cProjectLine& line = project.line(n);
            if (line.FileType < kLineForm || line.FileType > kLineDesigner) continue;
            table_[p - 1][n - 1] = datesOf(line.WholeFile);
        }
    }
}

const MemberDateInfo* MemberDates::at(int project, int line) const {
    if (project < 1 || project > static_cast<int>(table_.size())) return nullptr;
    const auto& row = table_[project - 1];
    if (line < 1 || line > static_cast<int>(row.size()) || !row[line - 1]) return nullptr;
    return &*row[line - 1];
}

}  // namespace hlyd
