#include "platform/qt/qt_ui.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QStringList>
#include <QUrl>

#include "platform/qt/list_dialog.h"
#include "platform/qt/printer_dialog.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

struct ButtonAnswer {
    QMessageBox::StandardButton button;
    MsgAnswer answer;
};

std::vector<ButtonAnswer> buttonsOf(MsgButtons buttons) {
    using B = QMessageBox;
    switch (buttons) {
        case MsgButtons::OK: return {{B::Ok, MsgAnswer::OK}};
        case MsgButtons::OKCancel: return {{B::Ok, MsgAnswer::OK}, {B::Cancel, MsgAnswer::Cancel}};
        case MsgButtons::AbortRetryIgnore:
            return {{B::Abort, MsgAnswer::Abort}, {B::Retry, MsgAnswer::Retry}, {B::Ignore, MsgAnswer::Ignore}};
        case MsgButtons::YesNoCancel:
            return {{B::Yes, MsgAnswer::Yes}, {B::No, MsgAnswer::No}, {B::Cancel, MsgAnswer::Cancel}};
        case MsgButtons::YesNo: return {{B::Yes, MsgAnswer::Yes}, {B::No, MsgAnswer::No}};
        case MsgButtons::RetryCancel: return {{B::Retry, MsgAnswer::Retry}, {B::Cancel, MsgAnswer::Cancel}};
    }
    return {{B::Ok, MsgAnswer::OK}};
}

QMessageBox::Icon iconOf(MsgIcon icon) {
    switch (icon) {
        case MsgIcon::Critical: return QMessageBox::Critical;
        case MsgIcon::Question: return QMessageBox::Question;
        case MsgIcon::Warning: return QMessageBox::Warning;
        case MsgIcon::Information: return QMessageBox::Information;
        case MsgIcon::None: break;
    }
    return QMessageBox::NoIcon;
}

// A dialog opened while the program is busy must still show the ordinary pointer.
class PointerRestored {
public:
    PointerRestored() : busy_(QApplication::overrideCursor() != nullptr) {
        if (busy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~PointerRestored() {
        if (busy_) QApplication::restoreOverrideCursor();
    }

private:
    bool busy_;
};

QString directoryOf(const FileDialogRequest& request) {
    QString directory = fromLocalPath(request.directory);
    if (!request.fileName.empty())
        directory = directory.isEmpty() ? fromLocalPath(request.fileName)
                                        : directory + "/" + fromLocalPath(request.fileName);
    return directory;
}

void configure(QFileDialog& dialog, const FileDialogRequest& request) {
    dialog.setWindowTitle(fromUtf8(request.title));
    QStringList filters = nameFiltersOf(request.filter);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        int index = request.filterIndex >= 1 && request.filterIndex <= filters.size() ? request.filterIndex : 1;
        dialog.selectNameFilter(filters.at(index - 1));
    }
}

}  // namespace

QStringList nameFiltersOf(const std::string& filter) {
    QStringList parts = fromUtf8(filter).split('|');
    QStringList filters;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        // The caption may show its patterns already, separated by ";"; the dialog reads them from
        // the parentheses at the end, separated by blanks.
        QString caption = parts.at(i).trimmed();
        qsizetype open = caption.lastIndexOf('(');
        if (caption.endsWith(')') && open > 0) caption = caption.left(open).trimmed();
        QString patterns = parts.at(i + 1);
        patterns.replace(';', ' ');
        filters.append(caption + " (" + patterns + ")");
    }
    return filters;
}

MsgAnswer QtUi::messageBox(const MessageBoxRequest& request) {
    PointerRestored pointer;
    QMessageBox box(iconOf(request.icon), fromUtf8(request.title), fromUtf8(request.text), QMessageBox::NoButton,
                    parent_.data());
    std::vector<ButtonAnswer> buttons = buttonsOf(request.buttons);
    for (const ButtonAnswer& b : buttons) box.addButton(b.button);
    std::size_t defaultIndex = static_cast<std::size_t>(request.defaultButton - 1);
    if (defaultIndex >= buttons.size()) defaultIndex = 0;
    box.setDefaultButton(buttons[defaultIndex].button);
    if (buttons.size() == 1 || request.buttons == MsgButtons::OKCancel || request.buttons == MsgButtons::YesNoCancel ||
        request.buttons == MsgButtons::RetryCancel)
        box.setEscapeButton(buttons.back().button);
    box.exec();
    auto clicked = box.standardButton(box.clickedButton());
    for (const ButtonAnswer& b : buttons)
        if (b.button == clicked) return b.answer;
    return defaultAnswer(request);
}

void QtUi::processEvents() {
    if (beforeEvents) beforeEvents();
    QApplication::processEvents();
}

void QtUi::beep() { QApplication::beep(); }

std::optional<std::vector<std::string>> QtUi::openFileDialog(const FileDialogRequest& request) {
    PointerRestored pointer;
    QFileDialog dialog(parent_.data());
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.multiSelect ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    dialog.setDirectory(fromLocalPath(request.directory));
    if (!request.fileName.empty()) dialog.selectFile(fromLocalPath(request.fileName));
    configure(dialog, request);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    std::vector<std::string> names;
    for (const QString& name : dialog.selectedFiles()) names.push_back(toLocalPath(name));
    return names;
}

std::optional<std::string> QtUi::saveFileDialog(const FileDialogRequest& request) {
    PointerRestored pointer;
    QFileDialog dialog(parent_.data());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(directoryOf(request));
    configure(dialog, request);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return toLocalPath(dialog.selectedFiles().front());
}

std::optional<int> QtUi::chooseFromList(const std::string& title, const std::vector<std::string>& items) {
    PointerRestored pointer;
    QStringList shown;
    for (const std::string& item : items) shown.append(fromUtf8(item));
    int chosen = ListDialog::choose(parent_.data(), fromUtf8(title), shown, fileListSize);
    if (chosen < 0) return std::nullopt;
    return chosen;
}

std::optional<std::string> QtUi::inputBox(const InputBoxRequest& request) {
    PointerRestored pointer;
    bool ok = false;
    QString answer = QInputDialog::getText(parent_.data(), fromCp1252(request.title), fromCp1252(request.prompt),
                                           QLineEdit::Normal, fromCp1252(request.defaultText), &ok);
    if (!ok) return std::nullopt;
    return toCp1252(answer);
}

// The pointer is a state, as the classic mouse pointer was: whoever sets it back to the default
// ends every hourglass, so that an unbalanced caller cannot leave one standing.
bool QtUi::printerDialog(PrinterDialogRequest& request) { return runPrinterDialog(parent_, request); }

void QtUi::setBusy(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy) QApplication::setOverrideCursor(Qt::WaitCursor);
    else QApplication::restoreOverrideCursor();
}

void QtUi::errorReport(const std::string& text) {
    if (errorReportDialog) {
        errorReportDialog(text);
        return;
    }
    messageBox({text, toUtf8(QApplication::applicationName()), MsgButtons::OK, MsgIcon::Critical, 1});
}

// The link is handed on as it is: its body was encoded the way mail programs expect, and a
// second encoding here would show the reader "%20" instead of blanks.
bool QtUi::openUrl(const std::string& url) {
    return QDesktopServices::openUrl(QUrl(fromUtf8(url), QUrl::TolerantMode));
}

bool QtUi::openFile(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(fromLocalPath(path)));
}

void QtUi::setClipboardText(const std::string& text) { QGuiApplication::clipboard()->setText(fromUtf8(text)); }

}  // namespace hlyd
