#pragma once
// The dates beside a project's tree: when each member was last saved, last printed by us and
// last run through the sibling tool, and whether it changed since we last printed it.
#include <optional>
#include <string>
#include <vector>

namespace hlyd {

class cProjectFiles;

struct MemberDateInfo {
    std::string FileDate;     // last saved, as the panel shows it
    std::string LastPrinted;  // our last printing, empty when there is none
    std::string LastGloss;    // the sibling tool's last run, empty when there is none
    bool Newer = false;
};

class MemberDates {
public:
    // Fills the table for every member of every project from the file system and the history.
    void SetTMRInfo(cProjectFiles& projects);
    // The entry of a member, or nothing for a line that is no member.
    const MemberDateInfo* at(int project, int line) const;

private:
    std::vector<std::vector<std::optional<MemberDateInfo>>> table_;  // [project - 1][line - 1]
};

}  // namespace hlyd
