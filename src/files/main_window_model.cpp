#include "files/main_window_model.h"

#include <algorithm>

#include "files/files_state.h"
#include "platform/char_case.h"

namespace hlyd {

namespace {

// The order of a sorted list box: letter case does not count.
bool sortsBefore(const std::string& a, const std::string& b) { return upperCase(a) < upperCase(b); }
}  // namespace

int SortedListModel::AddItem(const std::string& text) {
    auto at = std::upper_bound(items_.begin(), items_.end(), text, sortsBefore);
    int position = static_cast<int>(at - items_.begin());
    items_.insert(at, text);
    return position;
}

void SortedListModel::AddItems(const std::vector<std::string>& texts) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(items_.size() + texts.size());
    for (const std::string& item : items_) keyed.emplace_back(upperCase(item), item);
    for (const std::string& text : texts) keyed.emplace_back(upperCase(text), text);
    std::stable_sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    items_.clear();
    for (auto& k : keyed) items_.push_back(std::move(k.second));
}

MainWindowModel& mainWindow() { return filesState().mainWindow; }
void resetMainWindow() { renewInPlace(mainWindow()); }

}  // namespace hlyd
