#pragma once
// The main window (HLYD): menu bar, toolbar with the procedure list, the view with its scroll
// bar, and the status bar. It holds no state of its own: after every command it shows what the
// main window model says, and every user action goes to the viewing logic or a window command.
#include <QMainWindow>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "display/text_search.h"

class QComboBox;
class QDockWidget;
class QLabel;
class QMenu;
class QScrollBar;
class QToolBar;

namespace hlyd {

class FindBar;
class FindHits;
class ImageSurface;
class InputBlocker;
class PicShow;
class ViewsScope;
class WindowViews;

class HlydWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit HlydWindow(QWidget* parent = nullptr);
    ~HlydWindow() override;

    // Shows the model: captions, tips, enabled and checked states, lists, scroll bar, labels.
    void refreshFromModel();
    // The window's place and bars from the settings, and back.
    void restoreFromSettings();
    void storeIntoSettings();

    ImageSurface& picDisplay() { return *picDisplay_; }
    PicShow* picShow() const { return picShow_; }
    QComboBox* cboProc() const { return cboProc_; }
    QScrollBar* vsbDisplay() const { return vsbDisplay_; }
    QLabel* lblRecord() const { return lblRecord_; }
    QLabel* lblStatus() const { return lblStatus_; }
    QAction* action(const std::string& name) const;
    FindBar* findBar() const { return findBar_; }
    FindHits* findHits() const { return findHits_; }

    // The finished hidden picture becomes the visible one.
    void presentView();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    // Tips of the toolbar stay hidden while the ToolTips setting is off.
    bool eventFilter(QObject* watched, QEvent* event) override;
    // Files dropped on the window open as File/Open opens them.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildView();
    void buildStatusBar();
    void buildMenus();
    void buildFileMenu();
    void buildViewMenu();
    void buildWindowAndHelpMenus();
    void buildToolBar();
    QToolBar* addButtonBar(const QString& title, const char* name);
    void placeToolBars();
    void buildPopupMenu();
    void buildEditMenu();
    void buildFindBar();
    QAction* addCommand(QMenu* menu, const std::string& name, const QString& caption, std::function<void()> run);
    QAction* addButton(const std::string& name, const QString& caption, std::function<void()> run);
    void bindModelHooks();
    void runCommand(const std::function<void()>& command);
    void runToolbarCommand(const std::function<void()>& command);

    void refreshCommands();
    void refreshProcList();
    void refreshScrollBar();
    void refreshDynamicMenus();
    void refreshBars();
    void rebuildItems(QMenu* menu, QAction* before, std::vector<QAction*>& items,
                      const std::vector<std::string>& captions, const std::function<void(int)>& run);

    void onViewResized(QSize pixels);
    void onKeyDown(int keyCode, int shift);
    void onWheel(int angleEighths, int pixels, bool ctrl);
    void onScrollValue(int value);
    void onProcChosen(int index);
    void showAbout();

    // Find, select and copy in the view.
    void openFindBar();
    void findFromBar(bool forward);
    void findInAllFiles();
    void showUsesOfName();
    void copySelection();
    void onPressedAt(QPoint at, bool extend);
    void onDraggedTo(QPoint at);
    void onDoubleClickedAt(QPoint at);
    std::optional<TextPlace> viewPlaceAt(QPoint at) const;
    void onSelectionKey(int keyCode);
    void refreshHighlights();

    std::unique_ptr<ImageSurface> picDisplay_;
    std::unique_ptr<WindowViews> views_;
    std::unique_ptr<ViewsScope> viewsInForce_;  // goes before the views it installed
    PicShow* picShow_ = nullptr;
    QScrollBar* vsbDisplay_ = nullptr;
    QComboBox* cboProc_ = nullptr;
    QLabel* lblRecord_ = nullptr;
    QLabel* lblStatus_ = nullptr;
    QToolBar* toolBar_ = nullptr;
    QToolBar* fileBar_ = nullptr;  // the procedure list and the file buttons
    QMenu* fileMenu_ = nullptr;
    QMenu* viewMenu_ = nullptr;
    QMenu* windowMenu_ = nullptr;
    QMenu* debugMenu_ = nullptr;
    QMenu* popupMenu_ = nullptr;
    QMenu* editMenu_ = nullptr;
    FindBar* findBar_ = nullptr;
    FindHits* findHits_ = nullptr;
    QAction* mruEnd_ = nullptr;
    QAction* viewListEnd_ = nullptr;
    std::vector<QAction*> mruItems_;
    std::vector<QAction*> viewFileItems_;
    std::vector<QAction*> windowItems_;
    std::map<std::string, QAction*> actions_;
    std::vector<std::pair<QAction*, std::string>> popupItems_;  // popup item, command it follows
    InputBlocker* blocker_ = nullptr;
    std::vector<std::string> shownProcs_;
    bool syncing_ = false;  // the window itself writes a control: its change event must not act
};

// The window that presents the emitter's picture; none until one is made.
HlydWindow* theHlydWindow();

}  // namespace hlyd
