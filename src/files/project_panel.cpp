#include "files/project_panel.h"

#include "files/print_history.h"
#include "files/project_dates.h"
#include "files/project_file.h"
#include "files/project_tree.h"
#include "files/status_progress.h"
#include "platform/os.h"

namespace hlyd {

namespace {

std::vector<std::string> otherLines(cProjectFile& project) {
    std::vector<std::string> lines;
    for (const cProjectLine& line : project.ProjectRecords)
        if (line.FileType == kLineOtherKeyword || line.FileType == kLineNone) lines.push_back(line.AsRecord);
    return lines;
}

std::vector<std::string> fileLines(const cProjectLine& line, const MemberDateInfo* dates) {
    std::vector<std::string> lines{"File = " + line.FileName};
    os::FileInfo info = os::fileInfo(line.WholeFile);
    if (info.exists()) {
        lines.push_back("Date Updated = " + formatDefaultDateTime(static_cast<std::time_t>(info.modifiedSeconds)));
        lines.push_back("Size = " + groupedNumber(static_cast<std::int64_t>(info.size)));
    }
    if (dates && !dates->LastPrinted.empty()) lines.push_back("Last Halyard = " + dates->LastPrinted);
    if (dates && !dates->LastGloss.empty()) lines.push_back("Last Gloss = " + dates->LastGloss);
    return lines;
}

}  // namespace

ProjectPanel DisplayData(const cotlControl& outline, const MemberDates& dates, cProjectFiles& projects, int node) {
    if (node < 1 || node > outline.NodeCount()) return {};
    const OutlineNode& n = outline.Node(node);
    if (n.Level == 0) return {true, otherLines(projects.Item(n.Data))};
    if (n.Level == 1) return {};  // a kind of member has no file of its own
    int p = projectOfData(n.Data), l = lineOfData(n.Data);
    return {false, fileLines(projects.Item(p).line(l), dates.at(p, l))};
}

}  // namespace hlyd
