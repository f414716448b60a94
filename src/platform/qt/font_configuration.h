#pragma once
// The system's font configuration, read by fontconfig under Qt's font database. Reading it (a few
// dozen XML files and the caches of every font directory) cost a short print more than any other
// step. A print whose faces are all remembered from an earlier run reads their files directly and
// starts without it; the first look-up that needs the system's fonts loads it after all.
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

namespace hlyd {

// Before the application object: the font engine's settings come from an empty configuration.
void startWithoutFontConfiguration();
// Before anything asks Qt's font database: the system's configuration, loaded once.
void useFontConfiguration();
bool fontConfigurationLoaded();

// The files of a family's face that is drawn as it is (not made bold or slanted from another
// face), the first face of each file, best match first; none otherwise.
QStringList fontFilesOf(const QString& family, bool bold, bool italic);
// The configuration files and font directories, and the places of the user's own configuration
// that do not exist yet: when none has changed, the installed families are still the ones an
// earlier run saw.
std::vector<std::string> fontConfigurationSources();

}  // namespace hlyd
