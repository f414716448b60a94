#include "platform/qt/font_configuration.h"

#include <fontconfig/fontconfig.h>

namespace hlyd {

namespace {

bool startedEmpty = false;

std::string stringOf(const FcChar8* text) { return reinterpret_cast<const char*>(text); }

void appendAll(FcStrList* list, std::vector<std::string>& to) {
    if (!list) return;
    while (FcChar8* item = FcStrListNext(list)) to.push_back(stringOf(item));
    FcStrListDone(list);
}

// The current configuration holds its own reference: ours goes once it is set.
bool makeCurrent(FcConfig* config) {
    if (!config) return false;
    bool set = FcConfigSetCurrent(config);
    FcConfigDestroy(config);
    return set;
}

}  // namespace

void startWithoutFontConfiguration() { startedEmpty = makeCurrent(FcConfigCreate()); }

void useFontConfiguration() {
    if (!startedEmpty) return;
    startedEmpty = false;
    makeCurrent(FcInitLoadConfigAndFonts());
}

bool fontConfigurationLoaded() { return !startedEmpty; }

QString fontFileOf(const QString& family, bool bold, bool italic) {
    useFontConfiguration();
    QByteArray name = family.toUtf8();
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result;
    FcPattern* match = FcFontMatch(nullptr, pattern, &result);
    FcPatternDestroy(pattern);
    QString file;
    FcChar8 *path = nullptr, *matched = nullptr;
    int weight = 0, slant = 0, index = -1;
    if (match && FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch &&
        FcPatternGetString(match, FC_FAMILY, 0, &matched) == FcResultMatch &&
        FcPatternGetInteger(match, FC_WEIGHT, 0, &weight) == FcResultMatch &&
        FcPatternGetInteger(match, FC_SLANT, 0, &slant) == FcResultMatch &&
        FcPatternGetInteger(match, FC_INDEX, 0, &index) == FcResultMatch && index == 0 &&
        QString::fromUtf8(reinterpret_cast<const char*>(matched)) == family && (weight >= FC_WEIGHT_BOLD) == bold &&
        (slant != FC_SLANT_ROMAN) == italic)
        file = QString::fromUtf8(reinterpret_cast<const char*>(path));
    if (match) FcPatternDestroy(match);
    return file;
}

std::vector<std::string> fontConfigurationSources() {
    useFontConfiguration();
    std::vector<std::string> sources;
    appendAll(FcConfigGetConfigFiles(nullptr), sources);
    appendAll(FcConfigGetConfigDirs(nullptr), sources);
    appendAll(FcConfigGetFontDirs(nullptr), sources);
    return sources;
}

}  // namespace hlyd
