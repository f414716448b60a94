// Files dragged onto the main window from a file manager. Any local file is taken, so that a
// file the program does not read is told in the status bar rather than silently refused by the
// cursor.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

#include "dialogs/hlyd_window.h"
#include "platform/qt/qt_text.h"
#include "shell/dropped_files.h"

namespace hlyd {

namespace {

std::vector<std::string> localFiles(const QMimeData* data) {
    std::vector<std::string> paths;
    if (!data || !data->hasUrls()) return paths;
    for (const QUrl& url : data->urls())
        if (url.isLocalFile()) paths.push_back(toUtf8(url.toLocalFile()));
    return paths;
}

}  // namespace

void HlydWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(event->mimeData()).empty()) event->acceptProposedAction();
}

void HlydWindow::dragMoveEvent(QDragMoveEvent* event) {
    if (!localFiles(event->mimeData()).empty()) event->acceptProposedAction();
}

void HlydWindow::dropEvent(QDropEvent* event) {
    std::vector<std::string> paths = localFiles(event->mimeData());
    if (paths.empty()) return;
    event->acceptProposedAction();
    runCommand([&] { openDroppedFiles(paths); });
}

}  // namespace hlyd
