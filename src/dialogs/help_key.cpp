#include "dialogs/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include "shell/help_commands.h"

namespace hlyd {

namespace {

constexpr const char* kHelpPageProperty = "helpPage";

// The page of the nearest form around the widget, passing to the parent window of a dialog.
QString pageAround(QWidget* widget) {
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        QVariant page = w->property(kHelpPageProperty);
        if (page.isValid()) return page.toString();
    }
    return {};
}

}  // namespace

void setHelpPage(QWidget* form, const std::string& page) {
    form->setProperty(kHelpPageProperty, QString::fromStdString(page));
}

HelpKey::HelpKey(QObject* parent) : QObject(parent) { qApp->installEventFilter(this); }

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || !watched->isWidgetType()) return false;
    QString page = pageAround(static_cast<QWidget*>(watched));
    if (page.isEmpty() || !helpAvailable()) return false;
    showHelpPage(page.toStdString());
    return true;
}

}  // namespace hlyd
