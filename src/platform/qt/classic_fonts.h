#pragma once
// Font names written on another system ("Courier New", "Arial", "MS Sans Serif") and the
// families installed here. A classic name counts as available when a metric-compatible family
// stands in for it, and then reads back as asked; any other name that is not installed falls to
// the system's fixed-pitch font and reads back as that family.
#include <QString>
#include <QStringList>

namespace hlyd {

struct ResolvedFamily {
    QString family;    // what Qt draws with
    QString readBack;  // what the surface's font name reads
};

ResolvedFamily resolveFamily(const QString& requested);
// The font of last resort: the installed family behind the system's fixed-pitch font.
QString lastResortFamily();
// The installed families, the font of last resort first.
QStringList deviceFamilies();
// How many deviceFamilies() lists. The font of last resort is resolved only where the count
// depends on it: resolving it loads the system's fixed-pitch font, which a print seldom uses.
qsizetype deviceFamilyCount();
// The classic names that a stand-in installed here answers for, as that desktop spells them.
QStringList availableClassicNames();

}  // namespace hlyd
