// The main window's menu bar, toolbar and popup menu. Captions here are the ones the window
// starts with; the model's captions replace them once the commands are set up.
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "dialogs/hlyd_window.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "html/html_emit.h"
#include "html/site_command.h"
#include "platform/qt/qt_text.h"
#include "shell/debug_menu.h"
#include "shell/help_commands.h"
#include "shell/display_options.h"
#include "shell/print_commands.h"
#include "shell/project_window_command.h"
#include "shell/window_commands.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {
constexpr int kMruSize = 7;
}  // namespace

QAction* HlydWindow::action(const std::string& name) const {
    auto found = actions_.find(name);
    return found == actions_.end() ? nullptr : found->second;
}

QAction* HlydWindow::addCommand(QMenu* menu, const std::string& name, const QString& caption,
                                std::function<void()> run) {
    auto* item = new QAction(caption, this);
    item->setObjectName(fromUtf8(name));
    connect(item, &QAction::triggered, this, [this, run] { runCommand(run); });
    if (menu) menu->addAction(item);
    actions_[name] = item;
    return item;
}

QAction* HlydWindow::addButton(const std::string& name, const QString& caption, std::function<void()> run) {
    auto* button = new QAction(caption, this);
    button->setObjectName(fromUtf8(name));
    connect(button, &QAction::triggered, this, [this, run] { runToolbarCommand(run); });
    QToolBar* bar = fileBar_ ? fileBar_ : toolBar_;
    bar->addAction(button);
    // A button without a tip of its own shows its caption as one: the ToolTips setting is kept on
    // the button itself, not only on the bar around it.
    bar->widgetForAction(button)->installEventFilter(this);
    actions_[name] = button;
    return button;
}

void HlydWindow::buildMenus() {
    buildFileMenu();
    buildViewMenu();
    buildWindowAndHelpMenus();
}

void HlydWindow::buildFileMenu() {
    fileMenu_ = menuBar()->addMenu("&File");
    actions_[kMnuFile] = fileMenu_->menuAction();
    addCommand(fileMenu_, kMnuFilOpen, "&Open...", mnuFilOpen_Click);
    fileMenu_->addSeparator();
    addCommand(fileMenu_, kMnuFilClose, "&Close", mnuFilClose_Click);
    addCommand(fileMenu_, kMnuFilCloseAll, "Close &All", mnuFilCloseAll_Click);
    fileMenu_->addSeparator();
    addCommand(fileMenu_, kMnuFilPrint, "&Print...", mnuFilPrint_Click);
    addCommand(fileMenu_, kMnuFilPrintSetup, "Print &Setup...", mnuFilPrintSetup_Click);
    addCommand(fileMenu_, kMnuFileHTML, "Save as &HTML", HlydMNSaveAsHTML);
    addCommand(fileMenu_, kMnuFileHTMLSite, "Save as HTML Si&te...", HlydMNSaveAsHTMLSite);
    fileMenu_->addSeparator();
    for (int i = 1; i <= kMruSize; ++i) {
        QAction* item =
                addCommand(fileMenu_, "mnuFileMRU(" + std::to_string(i) + ")", QString(), [i] { mnuFileMRU_Click(i); });
        item->setVisible(false);
        mruItems_.push_back(item);
    }
    mruEnd_ = fileMenu_->addSeparator();
    addCommand(fileMenu_, kMnuFilExit, "E&xit", [this] { close(); });
    // The keys every desktop program answers to; Ctrl+F is the find bar's.
    action(kMnuFilOpen)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    action(kMnuFilClose)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_W));
    action(kMnuFilPrint)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    action(kMnuFilExit)->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
}

void HlydWindow::buildViewMenu() {
    viewMenu_ = menuBar()->addMenu("&View");
    actions_[kMnuView] = viewMenu_->menuAction();
    addCommand(viewMenu_, kMnuViewProc0, "Next Procedure", [] { mnuViewProc_Click(0); });
    addCommand(viewMenu_, kMnuViewProc1, "Prior Procecdure", [] { mnuViewProc_Click(1); });
    addCommand(viewMenu_, kMnuViewFile0, "Next File", [] { mnuViewFile_Click(0); });
    addCommand(viewMenu_, kMnuViewFile1, "Prior File", [] { mnuViewFile_Click(1); });
    viewMenu_->addSeparator();
    addCommand(viewMenu_, kMnuViewToolbar, "&Toolbar", mnuViewToolbar_Click)->setCheckable(true);
    addCommand(viewMenu_, kMnuViewToolTips, "T&oolTips", mnuViewToolTips_Click)->setCheckable(true);
    addCommand(viewMenu_, kMnuViewStatus, "&Status Bar", mnuViewStatus_Click)->setCheckable(true);
    viewMenu_->addSeparator();
    addCommand(viewMenu_, kMnuOptionsDisplay, "&Display Options", mnuOptionsDisplay_Click);
    addCommand(viewMenu_, kMnuOptionsPrint, "&Print Options", mnuOptionsPrint_Click);
    viewMenu_->addSeparator();
    viewListEnd_ = new QAction(this);  // the open files go in front of this invisible mark
    viewListEnd_->setVisible(false);
    viewMenu_->addAction(viewListEnd_);
}

void HlydWindow::buildWindowAndHelpMenus() {
    windowMenu_ = menuBar()->addMenu("&Window");
    actions_[kMnuWindow] = windowMenu_->menuAction();
    addCommand(windowMenu_, kMnuWinProjectWindow, "&Project Window", mnuWinProjectWindow_Click);
    windowMenu_->addSeparator();
    debugMenu_ = menuBar()->addMenu("&Debug");
    actions_[kMnuDebug] = debugMenu_->menuAction();
    debugMenu_->menuAction()->setVisible(false);
    for (const DebugMenuItem& item : debugMenuItems()) {
        if (item.flag && !debugMenu_->actions().isEmpty() && !debugMenu_->actions().back()->isCheckable())
            debugMenu_->addSeparator();  // the log file items, then the switches
        QAction* added = addCommand(debugMenu_, item.name, item.caption, [&item] { mnuDebug_Click(item); });
        added->setCheckable(item.flag != nullptr);
    }
    QMenu* help = menuBar()->addMenu("&Help");
    actions_[kMnuHelp] = help->menuAction();
    addCommand(help, kMnuHelContents, "&Help Topics...", mnuHelContents_Click);
    addCommand(help, kMnuHelSearch, "&Search For Help On...", mnuHelSearch_Click);
    help->addSeparator();
    addCommand(help, kMnuHelHelp, "He&lp On Help", mnuHelHelp_Click);
    help->addSeparator();
    addCommand(help, kMnuHelAbout, "&About Halyard...", [this] { showAbout(); });
}

QToolBar* HlydWindow::addButtonBar(const QString& title, const char* name) {
    QToolBar* bar = addToolBar(title);
    bar->setObjectName(name);
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->installEventFilter(this);
    return bar;
}

// The toolbar is two bars in one row: from the procedure list on the second one goes to a row
// of its own when the window is too narrow for both, so that the list and the file buttons are
// never folded away behind the bar's edge.
void HlydWindow::buildToolBar() {
    toolBar_ = addButtonBar("Toolbar", kTbrToolBar);
    addButton(kTbrOpen, "Open", mnuFilOpen_Click);
    addButton(kTbrClose, "Close", mnuFilClose_Click);
    addButton(kTbrPrint, "Print", mnuFilPrint_Click);
    addButton(kTbrPrintOptions, "Print Options", mnuOptionsPrint_Click);
    addButton(kTbrDisplayOptions, "Display Options", mnuOptionsDisplay_Click);
    addButton(kTbrPriorProcedure, "Prior Procedure", [] { mnuViewProc_Click(1); });
    addButton(kTbrNextProcedure, "Next Procedure", [] { mnuViewProc_Click(0); });
    addButton(kTbrPrintThisProcedure, "Print This Procedure", tbrPrintThisProcedure_Click);
    fileBar_ = addButtonBar("Procedures and files", kTbrToolBarFiles);
    cboProc_ = new QComboBox(fileBar_);
    cboProc_->setObjectName("cboProc");
    cboProc_->setMinimumContentsLength(16);
    cboProc_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cboProc_->setMaxVisibleItems(24);
    cboProc_->installEventFilter(this);
    actions_[kTbrProcedures] = fileBar_->addWidget(cboProc_);
    connect(cboProc_, &QComboBox::activated, this, &HlydWindow::onProcChosen);
    addButton(kTbrPriorFile, "Prior File", [] { mnuViewFile_Click(1); });
    addButton(kTbrNextFile, "Next File", [] { mnuViewFile_Click(0); });
    addButton(kTbrHelp, "Help", mnuHelContents_Click);
}

void HlydWindow::buildPopupMenu() {
    popupMenu_ = new QMenu("PopupMenu", this);
    popupMenu_->setObjectName(kMnuPopupMenu);
    auto item = [this](const QString& caption, const std::string& follows) {
        QAction* source = action(follows);
        QAction* popupItem = popupMenu_->addAction(caption);
        connect(popupItem, &QAction::triggered, source, &QAction::trigger);
        popupItems_.emplace_back(popupItem, follows);
    };
    item("Copy", kMnuEditCopy);
    popupMenu_->addSeparator();
    item("Open", kMnuFilOpen);
    item("Close ", kMnuFilClose);
    popupMenu_->addSeparator();
    item("Print", kMnuFilPrint);
    item("Display Options", kMnuOptionsDisplay);
    popupMenu_->addSeparator();
    item("Next Procedure", kMnuViewProc0);
    item("Prior Procedure", kMnuViewProc1);
    item("Next File", kMnuViewFile0);
    item("Prior File", kMnuViewFile1);
    popupMenu_->addSeparator();
    item("Project Window", kMnuWinProjectWindow);
    popupMenu_->addSeparator();
    item("Close Halyard", kMnuFilExit);
}

}  // namespace hlyd
