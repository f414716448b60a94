// The main window showing its model, and its place kept in the settings.
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>

#include "dialogs/hlyd_window.h"
#include "display/viewing.h"
#include "files/file_selection.h"
#include "files/main_window_model.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/qt_text.h"
#include "settings/settings_store.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

const std::string kMoreFiles = "&More Files ... ";
// The procedure list's width in characters: at least this, and at most that however long a name.
constexpr std::size_t kProcListMin = 16;
constexpr std::size_t kProcListMax = 40;

// Item i of the View menu's list is open file i + 1; the item for more files asks for one.
void chooseFromViewList(int item) {
    const std::vector<std::string>& items = mainWindow().viewFileList;
    int position = item + 1;
    if (item < static_cast<int>(items.size()) && items[item] == kMoreFiles) position = frmFileList();
    if (position >= 1) mnuViewFileList_Click(position);
}

void setIfDifferent(QLabel* label, const std::string& text) {
    QString shown = fromUtf8(text);
    if (label->text() != shown) label->setText(shown);
}

}  // namespace

void HlydWindow::refreshFromModel() {
    MainWindowModel& w = mainWindow();
    QString caption = fromUtf8(w.Caption.empty() ? std::string("Halyard") : w.Caption);
    if (windowTitle() != caption) setWindowTitle(caption);
    setIfDifferent(lblRecord_, w.lblRecord);
    setIfDifferent(lblStatus_, w.lblStatus);
    refreshCommands();
    refreshProcList();
    refreshScrollBar();
    refreshDynamicMenus();
    refreshBars();
    refreshHighlights();
}

void HlydWindow::refreshCommands() {
    const MainWindowModel& w = mainWindow();
    bool tips = hlydSettings().ToolTips;
    for (auto& [name, item] : actions_) {
        auto state = w.commands.find(name);
        if (state == w.commands.end()) continue;
        const CommandState& c = state->second;
        if (!c.caption.empty() && name.rfind(kTbrProcedures, 0) != 0) item->setText(fromUtf8(c.caption));
        item->setToolTip(tips ? fromUtf8(c.tip) : QString());
        item->setEnabled(c.enabled);
        item->setVisible(c.visible);
        if (item->isCheckable()) item->setChecked(c.checked);
    }
    auto list = w.commands.find("cboProc");
    cboProc_->setEnabled(list == w.commands.end() || list->second.enabled);
    auto procTip = w.commands.find(kTbrProcedures);
    cboProc_->setToolTip(procTip != w.commands.end() && tips ? fromUtf8(procTip->second.tip) : QString());
    for (auto& [popupItem, follows] : popupItems_)
        if (QAction* source = action(follows)) popupItem->setEnabled(source->isEnabled());
}

void HlydWindow::refreshProcList() {
    const SortedListModel& list = mainWindow().cboProc;
    syncing_ = true;
    if (shownProcs_ != list.items()) {
        shownProcs_ = list.items();
        cboProc_->clear();
        std::size_t longest = 0;
        for (const std::string& name : shownProcs_) {
            cboProc_->addItem(fromCp1252(name));
            longest = std::max(longest, name.size());
        }
        // Wide enough for the longest name of the file, within limits: a name of a hundred
        // characters is cut rather than push the file buttons off the bar.
        cboProc_->setMinimumContentsLength(
                static_cast<int>(std::clamp<std::size_t>(longest, kProcListMin, kProcListMax)));
    }
    if (cboProc_->currentIndex() != list.ListIndex) cboProc_->setCurrentIndex(list.ListIndex);
    syncing_ = false;
}

void HlydWindow::refreshScrollBar() {
    const ScrollBarModel& bar = mainWindow().vsbDisplay;
    syncing_ = true;
    vsbDisplay_->setRange(bar.Min, std::max(bar.Min, bar.Max));
    vsbDisplay_->setPageStep(std::max(1, bar.LargeChange));
    vsbDisplay_->setSingleStep(std::max(1, bar.SmallChange));
    // A thumb under the mouse stays where the user holds it: the view may start on another record
    // than the one asked for (a hidden form description), and moving the thumb under the mouse
    // would make the drag jump.
    if (!vsbDisplay_->isSliderDown()) vsbDisplay_->setValue(bar.Value);
    syncing_ = false;
}

// A menu's run-time items (recent files, open files) stand in front of a mark; they are made
// again only when their captions change.
void HlydWindow::rebuildItems(QMenu* menu, QAction* before, std::vector<QAction*>& items,
                              const std::vector<std::string>& captions, const std::function<void(int)>& run) {
    bool same = items.size() == captions.size();
    for (std::size_t i = 0; same && i < items.size(); ++i) same = items[i]->text() == fromUtf8(captions[i]);
    if (same) return;
    for (QAction* item : items) delete item;
    items.clear();
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto* item = new QAction(fromUtf8(captions[i]), menu);
        int index = static_cast<int>(i);
        connect(item, &QAction::triggered, this, [this, run, index] { runCommand([&] { run(index); }); });
        if (before) menu->insertAction(before, item);
        else menu->addAction(item);
        items.push_back(item);
    }
}

void HlydWindow::refreshDynamicMenus() {
    const MainWindowModel& w = mainWindow();
    for (std::size_t i = 0; i < mruItems_.size(); ++i) {
        std::string caption = i < w.mruCaptions.size() ? w.mruCaptions[i] : std::string();
        mruItems_[i]->setText(fromUtf8(caption));
        mruItems_[i]->setVisible(!caption.empty());
    }
    rebuildItems(viewMenu_, viewListEnd_, viewFileItems_, w.viewFileList, [](int i) { chooseFromViewList(i); });
    // The Window menu lists the open files, the latest first, to be seen; a file is chosen under
    // the View menu.
    rebuildItems(windowMenu_, nullptr, windowItems_, w.windowMenu, [](int) {});
    for (QAction* item : windowItems_) item->setEnabled(false);
}

void HlydWindow::refreshBars() {
    const HlydSettings& s = hlydSettings();
    if (toolBar_->isVisibleTo(this) != s.ToolBar) toolBar_->setVisible(s.ToolBar);
    if (fileBar_->isVisibleTo(this) != s.ToolBar) fileBar_->setVisible(s.ToolBar);
    placeToolBars();
    if (statusBar()->isVisibleTo(this) != s.StatusBar) statusBar()->setVisible(s.StatusBar);
    debugMenu_->menuAction()->setVisible(s.DebugMenu);
}

void HlydWindow::placeToolBars() {
    bool narrow = toolBar_->sizeHint().width() + fileBar_->sizeHint().width() > width();
    if (narrow == toolBarBreak(fileBar_)) return;
    if (narrow) insertToolBarBreak(fileBar_);
    else removeToolBarBreak(fileBar_);
}

void HlydWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    placeToolBars();
}

bool HlydWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip && !hlydSettings().ToolTips) return true;
    return QMainWindow::eventFilter(watched, event);
}

void HlydWindow::restoreFromSettings() {
    const HlydSettings& s = hlydSettings();
    int tppX = picDisplay_->twipsPerPixelX();
    int tppY = picDisplay_->twipsPerPixelY();
    QRect place(s.Screen[0] / tppX, s.Screen[1] / tppY, s.Screen[2] / tppX, s.Screen[3] / tppY);
    if (place.width() >= 200 && place.height() >= 150) setGeometry(place);
    refreshBars();
}

void HlydWindow::storeIntoSettings() {
    HlydSettings& s = hlydSettings();
    // A maximised window comes back maximised. One closed while minimised comes back as a window:
    // a program that starts as an icon looks as if it had not started.
    s.WindowState = isMaximized() ? 2 : 0;
    if (isMaximized() || isMinimized()) return;  // the normal place is kept for when it is restored
    int tppX = picDisplay_->twipsPerPixelX();
    int tppY = picDisplay_->twipsPerPixelY();
    QRect place = geometry();
    s.Screen = {place.x() * tppX, place.y() * tppY, place.width() * tppX, place.height() * tppY};
}

}  // namespace hlyd
