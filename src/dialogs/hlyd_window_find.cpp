// Find, select and copy in the main window's view: the Edit menu, the find bar, the list of places
// in all open files, the pointer and Shift+arrows selecting, and the lit boxes over the picture.
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QVBoxLayout>

#include "dialogs/find_bar.h"
#include "dialogs/find_hits.h"
#include "dialogs/hlyd_window.h"
#include "dialogs/pic_show.h"
#include "display/view_find.h"
#include "display/view_map.h"
#include "display/view_selection.h"
#include "display/viewing.h"
#include "files/main_window_model.h"
#include "platform/qt/image_surface.h"
#include "platform/qt/qt_text.h"
#include "shell/name_jumps.h"
#include "files/command_ids.h"

namespace hlyd {

namespace {

// The line end that pasting programs of the platform expect from the clipboard.
#ifdef Q_OS_WIN
const std::string kClipboardLineEnd = "\r\n";
#else
const std::string kClipboardLineEnd = "\n";
#endif

CaretMove caretMoveOf(int keyCode) {
    switch (keyCode) {
        case kKeyUp: return CaretMove::Up;
        case kKeyDown: return CaretMove::Down;
        case 37: return CaretMove::Left;
        default: return CaretMove::Right;
    }
}

}  // namespace

void HlydWindow::buildEditMenu() {
    editMenu_ = new QMenu("&Edit", this);
    menuBar()->insertMenu(viewMenu_->menuAction(), editMenu_);
    actions_[kMnuEdit] = editMenu_->menuAction();
    addCommand(editMenu_, kMnuEditCopy, "&Copy", [this] { copySelection(); })->setShortcut(QKeySequence::Copy);
    addCommand(editMenu_, kMnuEditSelectAll, "Select &All", selectAll)->setShortcut(QKeySequence::SelectAll);
    editMenu_->addSeparator();
    addCommand(editMenu_, kMnuEditFind, "&Find...", [this] { openFindBar(); })->setShortcut(QKeySequence::Find);
    addCommand(editMenu_, kMnuEditFindNext, "Find &Next", [this] {
        findFromBar(true);
    })->setShortcut(QKeySequence(Qt::Key_F3));
    addCommand(editMenu_, kMnuEditFindPrevious, "Find &Previous", [this] {
        findFromBar(false);
    })->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F3));
    addCommand(editMenu_, kMnuEditFindAll, "Find in All &Open Files...", [this] { findInAllFiles(); });
    editMenu_->addSeparator();
    addCommand(editMenu_, kMnuEditGoToDeclaration, "Go to &Declaration", goToDeclaration)
            ->setShortcut(QKeySequence(Qt::Key_F12));
    addCommand(editMenu_, kMnuEditUsesOfName, "&Uses of Name", [this] {
        showUsesOfName();
    })->setShortcut(QKeySequence(Qt::SHIFT | Qt::Key_F12));
}

// The bar goes under the view and its scroll bar, hidden until asked for; the list of places in
// all files docks at the window's foot.
void HlydWindow::buildFindBar() {
    QWidget* view = takeCentralWidget();
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    view->setParent(central);
    layout->addWidget(view, 1);
    findBar_ = new FindBar(central);
    findBar_->hide();
    layout->addWidget(findBar_);
    setCentralWidget(central);
    connect(findBar_, &FindBar::findAsked, this, [this](bool forward) { runCommand([&] { findFromBar(forward); }); });
    connect(findBar_, &FindBar::findAllAsked, this, [this] { runCommand([&] { findInAllFiles(); }); });
    connect(findBar_, &FindBar::closed, this, [this] { picShow_->setFocus(); });
    // Escape closes the bar from the view too, where the reader went on after a find.
    auto* escape = new QShortcut(QKeySequence(Qt::Key_Escape), picShow_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(escape, &QShortcut::activated, this, [this] {
        if (findBar_->isVisible()) findBar_->hide();
    });
    findHits_ = new FindHits(this);
    findHits_->hide();
    addDockWidget(Qt::BottomDockWidgetArea, findHits_);
    connect(findHits_, &FindHits::hitActivated, this, [this](const FileHit& hit) {
        runCommand([&] { showFileHit(hit); });
        picShow_->setFocus();
    });
    connect(picShow_, &PicShow::pressedAt, this, &HlydWindow::onPressedAt);
    connect(picShow_, &PicShow::nameClickedAt, this, [this](QPoint at) {
        onPressedAt(at, false);
        runCommand(goToDeclaration);
    });
    connect(picShow_, &PicShow::draggedTo, this, &HlydWindow::onDraggedTo);
    connect(picShow_, &PicShow::doubleClickedAt, this, &HlydWindow::onDoubleClickedAt);
    connect(picShow_, &PicShow::selectionKey, this, &HlydWindow::onSelectionKey);
}

// The bar opens with the selection as its text when that is a part of one line: what a reader
// marked is most often what they look for.
void HlydWindow::openFindBar() {
    TextPlace from = selectionStart(), to = selectionEnd();
    if (!selectionEmpty() && from.record == to.record) {
        std::string selected = selectedText("\n");
        if (!selected.empty()) findBar_->field()->setText(fromCp1252(selected));
    }
    findBar_->open();
}

void HlydWindow::findFromBar(bool forward) {
    if (findBar_->text().isEmpty()) return openFindBar();
    findInView(toCp1252(findBar_->text()), findBar_->options(), forward);
}

void HlydWindow::findInAllFiles() {
    if (findBar_->text().isEmpty()) return openFindBar();
    std::vector<FileHit> hits = findInOpenFiles(toCp1252(findBar_->text()), findBar_->options());
    mainWindow().lblStatus =
            std::to_string(hits.size()) + (hits.size() == 1 ? " place" : " places") + " found in the open files";
    findHits_->showHits(findBar_->text(), std::move(hits));
}

// The name's declaration and uses go in the list that Find in All Open Files fills: each a jump.
void HlydWindow::showUsesOfName() {
    std::vector<FileHit> hits = usesOfNameAt(selectionStart());
    if (hits.empty()) {
        mainWindow().lblStatus = "No declaration in the open files for the name at the cursor";
        return;
    }
    const FileHit& declaration = hits.front();
    QString name = fromCp1252(declaration.line.substr(static_cast<std::size_t>(declaration.hit.column),
                                                      static_cast<std::size_t>(declaration.hit.length)));
    mainWindow().lblStatus = std::to_string(hits.size() - 1) + (hits.size() == 2 ? " use" : " uses") + " of " +
                             toCp1252(name) + " in the open files";
    findHits_->showHits(name, std::move(hits));
}

void HlydWindow::copySelection() {
    if (selectionEmpty()) return;
    QApplication::clipboard()->setText(fromCp1252(selectedText(kClipboardLineEnd)));
}

std::optional<TextPlace> HlydWindow::viewPlaceAt(QPoint at) const {
    return placeAt(viewMap(), static_cast<float>(at.x() * picDisplay_->twipsPerPixelX()),
                   static_cast<float>(at.y() * picDisplay_->twipsPerPixelY()));
}

void HlydWindow::onPressedAt(QPoint at, bool extend) {
    auto place = viewPlaceAt(at);
    if (!place) return;
    // A place clicked is where the next search starts, rather than the place found last.
    if (!extend) resetFindState();
    selectFrom(*place, extend);
    refreshHighlights();
}

// Past the view's top or foot the view scrolls a line that way and the selection runs to the
// line now at that edge.
void HlydWindow::onDraggedTo(QPoint at) {
    const int height = picShow_->height();
    if (at.y() < 0 || at.y() >= height) {
        runCommand([&] { scrollForDrag(at.y() >= height); });
        at.setY(at.y() < 0 ? 0 : height - 1);
    }
    auto place = viewPlaceAt(at);
    if (!place) return;
    selectTo(*place);
    refreshHighlights();
}

void HlydWindow::onDoubleClickedAt(QPoint at) {
    auto place = viewPlaceAt(at);
    if (!place) return;
    resetFindState();
    selectWordAt(*place);
    refreshHighlights();
}

void HlydWindow::onSelectionKey(int keyCode) {
    runCommand([&] { extendSelection(caretMoveOf(keyCode)); });
}

void HlydWindow::refreshHighlights() {
    if (!picShow_ || !picDisplay_) return;
    const float tppX = static_cast<float>(picDisplay_->twipsPerPixelX());
    const float tppY = static_cast<float>(picDisplay_->twipsPerPixelY());
    auto toPixels = [&](const std::vector<TwipBox>& boxes) {
        QVector<QRect> rects;
        for (const TwipBox& b : boxes)
            rects << QRect(QPoint(qRound(b.left / tppX), qRound(b.top / tppY)),
                           QPoint(qRound(b.right / tppX) - 1, qRound(b.bottom / tppY) - 1));
        return rects;
    };
    QVector<QRect> found;
    std::optional<TextHit> hit = currentHit();
    bool hitSelected = false;
    if (hit) {
        TextPlace from{hit->record, hit->column}, to{hit->record, hit->column + hit->length};
        found = toPixels(boxesOf(viewMap(), from, to));
        hitSelected = !before(from, selectionStart()) && !before(selectionStart(), from) &&
                      !before(to, selectionEnd()) && !before(selectionEnd(), to);
    }
    QVector<QRect> selected;
    if (!hitSelected) selected = toPixels(boxesOf(viewMap(), selectionStart(), selectionEnd()));
    picShow_->setHighlights(selected, found);
    if (QAction* copy = action(kMnuEditCopy)) copy->setEnabled(!selectionEmpty());
    for (auto& [popupItem, follows] : popupItems_)
        if (follows == kMnuEditCopy) popupItem->setEnabled(!selectionEmpty());
}

}  // namespace hlyd
