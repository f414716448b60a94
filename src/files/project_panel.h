#pragma once
// The information panel beside a project's tree: what is known of the file under selection, or,
// for a project, the lines of its file that name no member.
#include <string>
#include <vector>

namespace hlyd {

class cProjectFiles;
class cotlControl;
class MemberDates;

struct ProjectPanel {
    bool ShowList = false;           // a project node: lstMiscOther takes the panel's place
    std::vector<std::string> Lines;  // the lines printed on picFileInfo, or the items of the list
};

ProjectPanel DisplayData(const cotlControl& outline, const MemberDates& dates, cProjectFiles& projects, int node);

}  // namespace hlyd
