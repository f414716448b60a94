#include "dialogs/hlyd_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QStatusBar>
#include <QToolBar>

#include "base/app_info.h"
#include "dialogs/about_box.h"
#include "dialogs/help_key.h"
#include "dialogs/input_blocker.h"
#include "dialogs/pic_show.h"
#include "dialogs/view_hooks.h"
#include "dialogs/window_views.h"
#include "display/screen_emitter.h"
#include "display/viewing.h"
#include "display/wheel_scroll.h"
#include "files/main_window_model.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/qt_text.h"
#include "settings/settings_store.h"
#include "shell/app_start.h"
#include "shell/command_status.h"
#include "shell/error_report.h"
#include "shell/window_commands.h"

namespace hlyd {

namespace {

HlydWindow* presentingWindow = nullptr;

// The scroll bar, the status labels and the procedure list sit in the classic places.
constexpr int kStatusMinimumWidth = 120;

}  // namespace

HlydWindow* theHlydWindow() { return presentingWindow; }

HlydWindow::HlydWindow(QWidget* parent) : QMainWindow(parent), picDisplay_(std::make_unique<ImageSurface>()) {
    setObjectName("HLYD");
    setWindowTitle(fromUtf8(theAppInfo().Title));
    blocker_ = new InputBlocker(this);
    setAcceptDrops(true);
    setHelpPage(this, "window.html");
    new HelpKey(this);
    buildView();
    buildStatusBar();
    buildMenus();
    buildEditMenu();
    buildFindBar();
    buildToolBar();
    buildPopupMenu();
    presentingWindow = this;
    bindModelHooks();
    views_ = std::make_unique<WindowViews>(*this);
    viewsInForce_ = std::make_unique<ViewsScope>(*views_);
}

HlydWindow::~HlydWindow() {
    if (presentingWindow == this) presentingWindow = nullptr;
}

void HlydWindow::buildView() {
    auto* central = new QWidget(this);
    auto* layout = new QHBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    picShow_ = new PicShow(central);
    vsbDisplay_ = new QScrollBar(Qt::Vertical, central);
    vsbDisplay_->setObjectName("vsbDisplay");
    // The view follows the thumb while it is dragged; the bar is set from the model again when
    // the thumb is let go (see refreshScrollBar).
    vsbDisplay_->setTracking(true);
    layout->addWidget(picShow_, 1);
    layout->addWidget(vsbDisplay_);
    setCentralWidget(central);
    connect(picShow_, &PicShow::resized, this, &HlydWindow::onViewResized);
    connect(picShow_, &PicShow::keyDown, this, &HlydWindow::onKeyDown);
    connect(picShow_, &PicShow::wheelTurned, this, &HlydWindow::onWheel);
    connect(vsbDisplay_, &QScrollBar::valueChanged, this, &HlydWindow::onScrollValue);
    connect(vsbDisplay_, &QScrollBar::sliderReleased, this, &HlydWindow::refreshScrollBar);
    connect(picShow_, &PicShow::contextMenuAsked, this, [this](QPoint at) { popupMenu_->popup(at); });
}

void HlydWindow::buildStatusBar() {
    QStatusBar* bar = statusBar();
    bar->setObjectName("picStatus");
    bar->setSizeGripEnabled(true);
    lblRecord_ = new QLabel(bar);
    lblRecord_->setObjectName("lblRecord");
    lblRecord_->setMinimumWidth(kStatusMinimumWidth);
    lblStatus_ = new QLabel("Ready", bar);
    lblStatus_->setObjectName("lblStatus");
    bar->addWidget(lblRecord_);
    bar->addWidget(lblStatus_, 1);
}

void HlydWindow::bindModelHooks() {
    MainWindowModel& w = mainWindow();
    w.clearDisplay = [this] {
        picDisplay_->cls();
        presentView();
    };
    installViewHooks();
    w.disableControls = [this] {
        HlydMSDisableHLYDControls();
        blocker_->setBlocked(true);
    };
    w.enableControls = [this] {
        HlydMSEnableHLYDControls();
        blocker_->setBlocked(false);
        refreshFromModel();
    };
}

void HlydWindow::presentView() {
    picShow_->setPicture(picDisplay_->image());
    refreshHighlights();
    if (picShow_->isVisible() && isActiveWindow() && !isMinimized()) picShow_->setFocus();
}

// Every command ends in the common tail: an unexpected failure goes to the error report.
void HlydWindow::runCommand(const std::function<void()>& command) {
    trapErrors("HLYD", command);
    settleStatusAfterCommand();
    refreshFromModel();
}

// While a toolbar command runs the status bar says so; it is back at rest afterwards unless the
// command left a status of its own.
void HlydWindow::runToolbarCommand(const std::function<void()>& command) {
    MainWindowModel& w = mainWindow();
    w.lblStatus = "Processing...";
    lblStatus_->setText(fromUtf8(w.lblStatus));
    lblStatus_->repaint();
    trapErrors("HLYD", command);
    settleStatusAfterCommand();
    refreshFromModel();
}

void HlydWindow::onViewResized(QSize pixels) {
    picDisplay_->resizePixels(pixels);
    picShow_->setPicture(picDisplay_->image());
    runCommand([&] { viewResized(pixels.height() * picDisplay_->twipsPerPixelY()); });
}

void HlydWindow::onKeyDown(int keyCode, int shift) {
    runCommand([&] { picShow_KeyDown(keyCode, shift); });
}

void HlydWindow::onWheel(int angleEighths, int pixels, bool ctrl) {
    runCommand([&] { picShow_Wheel(WheelTurn{angleEighths, pixels, ctrl}); });
}

void HlydWindow::onScrollValue(int value) {
    if (syncing_) return;
    runCommand([&] { setScrollValue(value); });
}

void HlydWindow::onProcChosen(int index) {
    if (syncing_) return;
    runCommand([&] {
        mainWindow().cboProc.ListIndex = index;
        cboProc_Click();
    });
}

void HlydWindow::closeEvent(QCloseEvent* event) {
    if (!hlydMain().ApplicationEnding) HlydMNTerminateApp();
    event->accept();
}

void HlydWindow::showAbout() {
    AboutBox about(this);
    about.exec();
}

}  // namespace hlyd
