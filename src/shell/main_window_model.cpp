#include "shell/main_window_model.h"

#include <algorithm>
#include <memory>

#include "analysis/keywords.h"

namespace hlyd {

namespace {
std::unique_ptr<MainWindowModel> model = std::make_unique<MainWindowModel>();

// The order of a sorted list box: letter case does not count.
bool sortsBefore(const std::string& a, const std::string& b) {
    return upperCase(a) < upperCase(b);
}
}  // namespace

int SortedListModel::AddItem(const std::string& text) {
    auto at = std::upper_bound(items_.begin(), items_.end(), text, sortsBefore);
    int position = static_cast<int>(at - items_.begin());
    items_.insert(at, text);
    return position;
}

MainWindowModel& mainWindow() { return *model; }
void resetMainWindow() { model = std::make_unique<MainWindowModel>(); }

}  // namespace hlyd
