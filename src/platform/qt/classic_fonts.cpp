#include "platform/qt/classic_fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QHash>
#include <algorithm>

#include "platform/pdf/face_files.h"
#include "platform/qt/font_configuration.h"
#include "platform/qt/qt_text.h"

namespace hlyd {

namespace {

const QStringList kMonoStandIns{"Liberation Mono", "Cousine", "Nimbus Mono PS", "Nimbus Mono L", "DejaVu Sans Mono"};
const QStringList kSansStandIns{"Liberation Sans", "Arimo", "Nimbus Sans", "Nimbus Sans L", "DejaVu Sans"};
const QStringList kSerifStandIns{"Liberation Serif", "Tinos", "Nimbus Roman", "Nimbus Roman No9 L", "DejaVu Serif"};

struct ClassicName {
    const char* name;
    const QStringList* standIns;
};

// The names that settings from the classic desktop carry, spelled as that desktop reads them back.
const ClassicName kClassicNames[] = {
        {"Courier New", &kMonoStandIns},
        {"Courier", &kMonoStandIns},
        {"Lucida Console", &kMonoStandIns},
        {"Consolas", &kMonoStandIns},
        {"Fixedsys", &kMonoStandIns},
        {"Terminal", &kMonoStandIns},
        {"Arial", &kSansStandIns},
        {"Helvetica", &kSansStandIns},
        {"MS Sans Serif", &kSansStandIns},
        {"Microsoft Sans Serif", &kSansStandIns},
        {"MS Shell Dlg", &kSansStandIns},
        {"MS Shell Dlg 2", &kSansStandIns},
        {"Tahoma", &kSansStandIns},
        {"Verdana", &kSansStandIns},
        {"Segoe UI", &kSansStandIns},
        {"System", &kSansStandIns},
        {"Times New Roman", &kSerifStandIns},
        {"Times", &kSerifStandIns},
        {"MS Serif", &kSerifStandIns},
        {"Georgia", &kSerifStandIns},
};

// Installed families by lower-cased name, read once: the database is slow to ask per token.
const QHash<QString, QString>& installedFamilies() {
    static const QHash<QString, QString> families = [] {
        useFontConfiguration();
        QHash<QString, QString> byKey;
        for (const QString& family : QFontDatabase::families()) byKey.insert(family.toLower(), family);
        return byKey;
    }();
    return families;
}

QString installedSpelling(const QString& name) { return installedFamilies().value(name.toLower()); }

const ClassicName* classicName(const QString& requested) {
    for (const ClassicName& c : kClassicNames)
        if (requested.compare(QLatin1String(c.name), Qt::CaseInsensitive) == 0) return &c;
    return nullptr;
}

}  // namespace

QString lastResortFamily() {
    static const QString family = [] {
        useFontConfiguration();
        QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
        QString resolved = QFontInfo(fixed).family();
        if (!installedSpelling(resolved).isEmpty()) return installedSpelling(resolved);
        for (const QString& standIn : kMonoStandIns)
            if (!installedSpelling(standIn).isEmpty()) return installedSpelling(standIn);
        return resolved;
    }();
    return family;
}

QStringList deviceFamilies() {
    useFontConfiguration();
    QStringList families{lastResortFamily()};
    for (const QString& family : QFontDatabase::families())
        if (family != families.front()) families.append(family);
    return families;
}

// With a monospaced stand-in installed, the font of last resort is an installed family (the
// system's own or that stand-in), listed once among the others.
qsizetype deviceFamilyCount() {
    useFontConfiguration();
    bool standInInstalled = std::any_of(kMonoStandIns.begin(), kMonoStandIns.end(),
                                        [](const QString& standIn) { return !installedSpelling(standIn).isEmpty(); });
    return standInInstalled ? QFontDatabase::families().size() : deviceFamilies().size();
}

QStringList availableClassicNames() {
    QStringList names;
    for (const ClassicName& c : kClassicNames) {
        QString name = QString::fromLatin1(c.name);
        if (installedSpelling(name).isEmpty() && resolveFamily(name).readBack == name) names.append(name);
    }
    return names;
}

namespace {

ResolvedFamily lookUpFamily(const QString& requested) {
    QString installed = installedSpelling(requested);
    if (!installed.isEmpty()) return {installed, installed};
    if (const ClassicName* classic = classicName(requested)) {
        for (const QString& standIn : *classic->standIns) {
            QString found = installedSpelling(standIn);
            if (!found.isEmpty()) return {found, QString::fromLatin1(classic->name)};
        }
    }
    QString fallback = lastResortFamily();
    return {fallback, fallback};
}

}  // namespace

// A print sets the same few names again and again, and each run the same as the last: a name an
// earlier run resolved needs no font database.
ResolvedFamily resolveFamily(const QString& requested) {
    if (auto known = rememberedFamily(toUtf8(requested))) return {fromUtf8(known->first), fromUtf8(known->second)};
    ResolvedFamily resolved = lookUpFamily(requested);
    rememberFamily(toUtf8(requested), toUtf8(resolved.family), toUtf8(resolved.readBack));
    return resolved;
}

}  // namespace hlyd
