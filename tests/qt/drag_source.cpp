// A window to drag files from, for walk-throughs under a real X server, where a pointer driven
// from outside can press and move but cannot begin a drag of files itself. Pressing the left
// button in the window and moving starts a drag of the files named on the command line; the
// program prints what the drop target did with them and ends a little later: status 0 when they were taken,
// 1 when the drop was refused or cancelled, 2 for a wrong command line.
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QTimer>
#include <QUrl>
#include <cstdio>

namespace {

class DragSource : public QLabel {
public:
    explicit DragSource(QList<QUrl> files) : QLabel("Drag from here"), files_(std::move(files)) {
        setWindowTitle("Drag source");
        setAlignment(Qt::AlignCenter);
        resize(200, 120);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override { pressedAt_ = event->position().toPoint(); }
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!(event->buttons() & Qt::LeftButton) || dragged_) return;
        if ((event->position().toPoint() - pressedAt_).manhattanLength() < QApplication::startDragDistance()) return;
        dragged_ = true;
        auto* data = new QMimeData;
        data->setUrls(files_);
        auto* drag = new QDrag(this);
        drag->setMimeData(data);
        // Told, so that whoever drives the pointer moves on only once the drag is under way.
        std::printf("dragging\n");
        std::fflush(stdout);
        Qt::DropAction done = drag->exec(Qt::CopyAction);
        std::printf("%s\n", done == Qt::IgnoreAction ? "refused" : "taken");
        std::fflush(stdout);
        // The drop's target asks for the files only after the button is let go: the source must
        // still be there to answer.
        int status = done == Qt::IgnoreAction ? 1 : 0;
        QTimer::singleShot(3000, [status] { QApplication::exit(status); });
    }

private:
    QList<QUrl> files_;
    QPoint pressedAt_;
    bool dragged_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QList<QUrl> files;
    for (const QString& name : app.arguments().mid(1)) files << QUrl::fromLocalFile(name);
    if (files.isEmpty()) {
        std::fprintf(stderr, "usage: hlyd-drag-source FILE...\n");
        return 2;
    }
    DragSource source(files);
    source.show();
    return app.exec();
}
