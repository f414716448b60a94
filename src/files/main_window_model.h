#pragma once
// The window controls that the logic drives, as plain models: the Qt window binds to them, and
// the logic runs the same without a window. The models stand with the files because loading and
// walking a file are the lowest layers that write them (lblRecord, the scroll bar, cboProc);
// display, html and the commands above reach them from here.
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace hlyd {

struct ScrollBarModel {
    std::int32_t Min = 0;
    std::int32_t Max = 0;
    std::int32_t Value = 0;
    std::int32_t LargeChange = 1;
    std::int32_t SmallChange = 1;
};

// A list box that keeps its items sorted, as the procedure list relies on.
class SortedListModel {
public:
    int AddItem(const std::string& text);  // returns the position it took
    // Adds many at once: each stands after the equal ones before it, as one by one.
    void AddItems(const std::vector<std::string>& texts);
    void Clear() { items_.clear(); }
    int ListCount() const { return static_cast<int>(items_.size()); }
    const std::string& List(int index) const { return items_.at(index); }
    const std::vector<std::string>& items() const { return items_; }
    int ListIndex = -1;

private:
    std::vector<std::string> items_;
};

// A menu item or toolbar button as the logic sets it; the window shows it so.
struct CommandState {
    std::string caption;
    std::string tip;
    bool enabled = true;
    bool visible = true;
    bool checked = false;
};

struct MainWindowModel {
    std::string Caption;
    std::string lblStatus;
    std::string lblRecord;
    SortedListModel cboProc;
    std::vector<std::string> windowMenu;  // captions of the open-files menu, at most 7
    ScrollBarModel vsbDisplay;
    std::int32_t firstLine = 0;  // the display's first-line position
    bool controlsEnabled = true;
    bool suspendDrawing = false;  // set while the window is not ready to be drawn
    // Menu items and toolbar buttons by control name (files/command_ids.h: kMnuFilClose, ...).
    std::map<std::string, CommandState> commands;
    std::vector<std::string> mruCaptions;   // "&1 name", at most 7; empty ones are hidden
    std::vector<std::string> viewFileList;  // the open files under the View menu

    CommandState& command(const std::string& name) { return commands[name]; }

    // What the window layer does when the logic asks; no-ops until it is there.
    std::function<void()> clearDisplay = [] {};
    std::function<void()> emitRequestedData = [] {};
    std::function<void()> showProject = [] {};
    std::function<void()> enableControls = [] {};
    std::function<void()> disableControls = [] {};
};

MainWindowModel& mainWindow();
void resetMainWindow();

}  // namespace hlyd
