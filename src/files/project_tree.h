#pragma once
// The tree of a project listing with its check marks: projects and groups, the kinds of member
// under each, and the lines of each kind. The user picks the members to work on here, and what
// stays checked becomes entries of the file table.
#include <cstdint>
#include <string>
#include <vector>

#include "files/file_table.h"

namespace hlyd {

class cProjectFiles;
class MemberDates;

// A member's Data is project * kLinesPerProject + line, so a project lists at most 999 lines in
// the tree; a project node's Data is its position alone.
constexpr std::int32_t kLinesPerProject = 1000;
constexpr int projectOfData(std::int32_t data) { return data / kLinesPerProject; }
constexpr int lineOfData(std::int32_t data) { return data % kLinesPerProject; }

struct OutlineNode {
    int Level = 0;  // 0 a project or group, 1 a kind of member, 2 a line of the project
    std::string Text;
    bool Checked = false;
    bool Expanded = false;
    bool IsFile = false;  // a member file: only those carry a check mark
    std::int32_t Data = 0;
};

class cotlControl {
public:
    // Builds the nodes afresh. Members that are there start checked, so that taking the tree
    // as it comes opens every member.
    void OutlineSetData(cProjectFiles& projects);

    int NodeCount() const { return static_cast<int>(nodes_.size()) - 1; }
    const OutlineNode& Node(int n) const { return nodes_.at(static_cast<std::size_t>(n)); }
    // The node that holds `n` (0 for a project or group), and whether every holder is open.
    int ParentOf(int n) const;
    bool IsShown(int n) const;

    void SelectAll();
    void DeselectAll();
    // Checks the members changed since they were last printed and returns how many; with none,
    // the user is told so and the marks stay as they stood.
    int SelectNewer(const MemberDates& dates);
    void OutlineExpandAll();
    void OutlineCollapseAll();
    void SetExpanded(int n, bool expanded);
    // A click on a file toggles its check mark; on a branch it opens or closes the branch.
    void OutlineClick(int n);

    // Appends to `chosen` each project's own entry, ahead of its checked members; true when at
    // least one member file went in. Checked members that are not there add nothing.
    bool GetSelected(cProjectFiles& projects, FileCollection& chosen) const;

private:
    void addProject(cProjectFiles& projects, int position);
    std::vector<OutlineNode> nodes_{OutlineNode{}};  // from 1
};

// Every member of the listing that is there, in the order the tree lists them, each project's own
// entry ahead of its members: the choice of a run with nobody to make one. The tree's bound on
// lines belongs to the dialog, so this takes every line. Returns the number of members.
int chooseEveryMember(cProjectFiles& projects, FileCollection& chosen);

}  // namespace hlyd
