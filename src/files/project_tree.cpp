#include "files/project_tree.h"

#include <algorithm>

#include "base/app_info.h"
#include "base/message_box.h"
#include "base/text_format.h"
#include "base/vb_convert.h"
#include "files/project_dates.h"
#include "files/project_file.h"

namespace hlyd {

namespace {

struct MemberKind {
    const char* name;
    std::int16_t keyWords[2];  // the keyword of the line, and the old form's, or 0
    bool files = true;         // members that can be chosen; objects and references cannot
};

// The order of the branches under a project. A member that is not there keeps its keyword, so it
// stays under its kind although its line type is gone.
constexpr MemberKind kKinds[] = {
        {"Forms", {24, -24}},       {"Modules", {31, -31}},        {"Classes", {4, 0}},
        {"User Controls", {58, 0}}, {"Property Pages", {41, 0}},   {"User Documents", {59, 0}},
        {"Designers", {17, 0}},     {"Objects", {34, -34}, false}, {"References", {42, 0}, false},
};

bool ofKind(const cProjectLine& line, const MemberKind& kind) {
    return line.KeyWord != 0 && (line.KeyWord == kind.keyWords[0] || line.KeyWord == kind.keyWords[1]);
}

bool isMemberType(std::int32_t type) { return type >= kLineForm && type <= kLineDesigner; }

std::string withoutPath(const std::string& name) {
    std::size_t at = name.find_last_of("\\/");
    return at == std::string::npos ? name : name.substr(at + 1);
}

// An object by the file after its ";", a reference by its description.
std::string otherText(const cProjectLine& line) {
    std::size_t semicolon = line.AsRecord.rfind(';');
    if (semicolon != std::string::npos) return trimSpaces(line.AsRecord.substr(semicolon + 1));
    if (!line.VBName.empty()) return line.VBName;
    std::size_t eq = line.AsRecord.find('=');
    return eq == std::string::npos ? line.AsRecord : line.AsRecord.substr(eq + 1);
}

// The lines of a kind, from 1 to `lines`, in the project's order.
std::vector<int> linesOfKind(cProjectFile& project, const MemberKind& kind, int lines) {
    std::vector<int> found;
    for (int n = 1; n <= lines; ++n)
        if (ofKind(project.line(n), kind)) found.push_back(n);
    return found;
}

// A member by its module name and file, where the two differ.
std::string memberText(const cProjectLine& line) {
    std::string file = withoutPath(line.FileName);
    if (line.FileType == kLineNone) return file + " (not available)";
    if (!line.VBName.empty() && line.VBName != line.FileNameBase) return line.VBName + " (" + file + ")";
    return file;
}

}  // namespace

void cotlControl::OutlineSetData(cProjectFiles& projects) {
    nodes_.assign(1, OutlineNode{});
    for (int p = 1; p <= projects.Count(); ++p) addProject(projects, p);
}

void cotlControl::addProject(cProjectFiles& projects, int position) {
    cProjectFile& project = projects.Item(position);
    nodes_.push_back({0, withoutPath(project.FileName), false, true, false, position});
    if (project.FileType == 0) return;  // a group's lines are its projects, which follow as nodes
    int lines = std::min(static_cast<int>(project.ProjectRecords.size()), kLinesPerProject - 1);
    for (const MemberKind& kind : kKinds) {
        std::vector<OutlineNode> members;
        for (int n : linesOfKind(project, kind, lines)) {
            const cProjectLine& line = project.line(n);
            bool there = isMemberType(line.FileType);
            members.push_back({2, kind.files ? memberText(line) : otherText(line), there && kind.files, false,
                               kind.files, position * kLinesPerProject + n});
        }
        if (members.empty()) continue;
        nodes_.push_back(
                {1, std::string(kind.name) + " (" + std::to_string(members.size()) + ")", false, true, false, 0});
        nodes_.insert(nodes_.end(), members.begin(), members.end());
    }
}

int cotlControl::ParentOf(int n) const {
    int level = Node(n).Level;
    for (int k = n - 1; k >= 1; --k)
        if (Node(k).Level < level) return k;
    return 0;
}

bool cotlControl::IsShown(int n) const {
    for (int p = ParentOf(n); p > 0; p = ParentOf(p))
        if (!Node(p).Expanded) return false;
    return true;
}

void cotlControl::SelectAll() {
    for (OutlineNode& node : nodes_)
        if (node.IsFile) node.Checked = true;
}

void cotlControl::DeselectAll() {
    for (OutlineNode& node : nodes_) node.Checked = false;
}

int cotlControl::SelectNewer(const MemberDates& dates) {
    int count = 0;
    for (OutlineNode& node : nodes_) {
        if (!node.IsFile || node.Data <= 0) continue;
        const MemberDateInfo* info = dates.at(projectOfData(node.Data), lineOfData(node.Data));
        if (info && info->Newer) {
            node.Checked = true;
            ++count;
        }
    }
    // The sibling tool's wording, kept so that both tools say the same.
    if (count < 1)
        showMessage("There are no files that have been modified since the last gloss.", theAppInfo().Title,
                    MsgButtons::OK, MsgIcon::Warning);
    return count;
}

void cotlControl::OutlineExpandAll() {
    for (OutlineNode& node : nodes_)
        if (node.Level < 2) node.Expanded = true;
}

void cotlControl::OutlineCollapseAll() {
    for (OutlineNode& node : nodes_) node.Expanded = false;
}

void cotlControl::SetExpanded(int n, bool expanded) {
    if (n >= 1 && n <= NodeCount() && Node(n).Level < 2) nodes_[static_cast<std::size_t>(n)].Expanded = expanded;
}

void cotlControl::OutlineClick(int n) {
    if (n < 1 || n > NodeCount()) return;
    OutlineNode& node = nodes_[static_cast<std::size_t>(n)];
    if (node.IsFile) node.Checked = !node.Checked;
    else if (node.Level < 2) node.Expanded = !node.Expanded;
}

int chooseEveryMember(cProjectFiles& projects, FileCollection& chosen) {
    int count = 0;
    for (int p = 1; p <= projects.Count(); ++p) {
        cProjectFile& project = projects.Item(p);
        if (project.FileType == 0) continue;
        chosen.Add({project.FileName, kFileProject, true, int16Of(p), 0});
        int lines = static_cast<int>(project.ProjectRecords.size());
        for (const MemberKind& kind : kKinds) {
            if (!kind.files) continue;
            for (int n : linesOfKind(project, kind, lines)) {
                const cProjectLine& line = project.line(n);
                if (!isMemberType(line.FileType)) continue;
                ++count;
                chosen.Add({line.WholeFile, kFileSource, true, int16Of(p), int16Of(n)});
            }
        }
    }
    return count;
}

bool cotlControl::GetSelected(cProjectFiles& projects, FileCollection& chosen) const {
    int count = 0;
    for (int n = 1; n <= NodeCount(); ++n) {
        const OutlineNode& node = Node(n);
        if (node.Level == 2 && node.Checked) {
            int p = projectOfData(node.Data), l = lineOfData(node.Data);
            const cProjectLine& line = projects.Item(p).line(l);
            if (!isMemberType(line.FileType)) continue;
            ++count;
            chosen.Add({line.WholeFile, kFileSource, true, int16Of(p), int16Of(l)});
        } else if (node.Level == 0 && node.Data > 0) {
            cProjectFile& project = projects.Item(node.Data);
            if (project.FileType != 0) chosen.Add({project.FileName, kFileProject, true, int16Of(node.Data), 0});
        }
    }
    return count >= 1;
}

}  // namespace hlyd
