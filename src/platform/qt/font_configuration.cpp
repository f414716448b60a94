#include "platform/qt/font_configuration.h"

#include <fontconfig/fontconfig.h>

#include <cstdlib>

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

// The places a user's own configuration is read from, whether or not they exist yet: fontconfig
// lists only the files it read, so a first fonts.conf written after a print would otherwise go
// unseen, and the faces it points elsewhere would still be read from the old files.
void appendUserConfiguration(std::vector<std::string>& to) {
    const char* home = std::getenv("HOME");
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    std::string config = xdg && *xdg ? xdg : home && *home ? std::string(home) + "/.config" : "";
    if (!config.empty()) {
        to.push_back(config + "/fontconfig");
        to.push_back(config + "/fontconfig/fonts.conf");
        to.push_back(config + "/fontconfig/conf.d");
    }
    if (home && *home) {
        to.push_back(std::string(home) + "/.fonts.conf");
        to.push_back(std::string(home) + "/.fonts.conf.d");
    }
}

}  // namespace

void startWithoutFontConfiguration() { startedEmpty = makeCurrent(FcConfigCreate()); }

void useFontConfiguration() {
    if (!startedEmpty) return;
    startedEmpty = false;
    makeCurrent(FcInitLoadConfigAndFonts());
}

bool fontConfigurationLoaded() { return !startedEmpty; }

namespace {

// Whether a candidate is a whole file of the family itself in the weight and slant asked for,
// rather than a substitute or a face that would have to be made bold or slanted.
QString fileOfExactly(FcPattern* candidate, const QString& family, bool bold, bool italic) {
    FcChar8 *path = nullptr, *matched = nullptr;
    int weight = 0, slant = 0, index = -1;
    if (FcPatternGetString(candidate, FC_FILE, 0, &path) == FcResultMatch &&
        FcPatternGetString(candidate, FC_FAMILY, 0, &matched) == FcResultMatch &&
        FcPatternGetInteger(candidate, FC_WEIGHT, 0, &weight) == FcResultMatch &&
        FcPatternGetInteger(candidate, FC_SLANT, 0, &slant) == FcResultMatch &&
        FcPatternGetInteger(candidate, FC_INDEX, 0, &index) == FcResultMatch && index == 0 &&
        QString::fromUtf8(reinterpret_cast<const char*>(matched)) == family && (weight >= FC_WEIGHT_BOLD) == bold &&
        (slant != FC_SLANT_ROMAN) == italic)
        return QString::fromUtf8(reinterpret_cast<const char*>(path));
    return {};
}

}  // namespace

// Every file, best first: a system may hold two versions of one family (a desktop often has
// both generations of a font package), and the face Qt chose need not be the best match.
QStringList fontFilesOf(const QString& family, bool bold, bool italic) {
    useFontConfiguration();
    QByteArray name = family.toUtf8();
    FcPattern* pattern = FcPatternCreate();
    FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(name.constData()));
    FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern, FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcConfigSubstitute(nullptr, pattern, FcMatchPattern);
    FcDefaultSubstitute(pattern);
    FcResult result;
    FcFontSet* sorted = FcFontSort(nullptr, pattern, FcFalse, nullptr, &result);
    FcPatternDestroy(pattern);
    QStringList files;
    for (int i = 0; sorted && i < sorted->nfont; ++i) {
        QString file = fileOfExactly(sorted->fonts[i], family, bold, italic);
        if (!file.isEmpty() && !files.contains(file)) files.append(file);
    }
    if (sorted) FcFontSetDestroy(sorted);
    return files;
}

std::vector<std::string> fontConfigurationSources() {
    useFontConfiguration();
    std::vector<std::string> sources;
    appendAll(FcConfigGetConfigFiles(nullptr), sources);
    appendAll(FcConfigGetConfigDirs(nullptr), sources);
    appendAll(FcConfigGetFontDirs(nullptr), sources);
    appendUserConfiguration(sources);
    return sources;
}

}  // namespace hlyd
