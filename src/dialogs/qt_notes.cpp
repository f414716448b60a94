#include "dialogs/qt_notes.h"

#include <QString>
#include <QtGlobal>
#include <cstdio>

namespace hlyd {

namespace {

void onlyQtFailures(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", qPrintable(text));
}

}  // namespace

void keepOnlyQtFailures() { qInstallMessageHandler(onlyQtFailures); }

}  // namespace hlyd
