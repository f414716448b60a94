// Faces read from their files without the font engine are the faces the engine gives, figure for
// figure, for every font on this machine at the sizes a print uses; a file that reading cannot
// answer exactly is refused rather than guessed at.
#include <gtest/gtest.h>

#include <QFile>
#include <QRawFont>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/pdf/file_face.h"
#include "platform/qt/qt_faces.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

std::vector<std::string> installedFontFiles() {
    std::vector<std::string> files;
    std::error_code error;
    for (const char* root : {"/usr/share/fonts", "/usr/local/share/fonts"})
        for (auto it = fs::recursive_directory_iterator(root, error); !error && it != fs::end(it); it.increment(error))
            if (it->path().extension() == ".ttf" || it->path().extension() == ".otf") files.push_back(it->path());
    return files;
}

// Everything of a face that a print and its PDF use, as text to compare.
std::string figuresOf(const PrintFace& face, const FaceFigures& f) {
    std::ostringstream out;
    out.precision(17);
    out << face.program->familyName() << '/' << face.program->styleName() << " em " << face.program->unitsPerEm()
        << " ascent " << f.ascent << " descent " << f.descent << " leading " << f.leading << " cap " << f.capHeight
        << " underline " << f.underlinePosition << " thickness " << f.lineThickness;
    for (const char* tag : {"head", "hhea", "hmtx", "glyf", "loca", "maxp", "CFF ", "cvt ", "fpgm", "prep"})
        out << ' ' << tag << ':' << face.program->table(tag).size();
    for (int c = 0x20; c < 256; ++c) out << ' ' << face.glyph[c] << ':' << face.advance[c];
    return out.str();
}

TEST(FileFace, AnswersAsTheFontEngineForEveryInstalledFont) {
    int answered = 0;
    for (const std::string& path : installedFontFiles()) {
        QFile file(QString::fromStdString(path));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QRawFont raw(file.readAll(), 12, QFont::PreferNoHinting);
        if (!raw.isValid()) continue;
        // The sizes of a listing at 720 and 600 dots per inch, and a heading's.
        for (double points : {8.0, 9.0, 10.0, 11.5, 12.0, 14.0}) {
            for (int dpi : {720, 600}) {
                PrintFace engine, fromFile;
                engine.pixelSize = fromFile.pixelSize = points * dpi / 72.0;
                std::optional<FaceFigures> read = readFileFace(fromFile, path);
                if (!read) continue;
                FaceFigures expected = fillQtFace(engine, raw);
                ASSERT_EQ(figuresOf(fromFile, *read), figuresOf(engine, expected)) << path << " at " << points;
                ++answered;
            }
        }
    }
    EXPECT_GT(answered, 0);
}

TEST(FileFace, AnswersTheStandInsOfTheClassicFaces) {
    for (const char* name : {"LiberationMono-Regular.ttf", "LiberationMono-Bold.ttf", "LiberationSans-Italic.ttf"}) {
        std::string path = "/usr/share/fonts/truetype/liberation2/" + std::string(name);
        if (!fs::exists(path)) GTEST_SKIP() << path << " is not installed";
        PrintFace face;
        face.pixelSize = 100;
        EXPECT_TRUE(readFileFace(face, path)) << path;
    }
}

TEST(FileFace, RefusesWhatIsNoSingleFont) {
    std::string dir = testing::TempDir();
    const std::string contents[] = {std::string(), std::string("ttcf\0\1\0\0", 8), std::string(300, 'x'),
                                    std::string("\0\1\0\0\0\1\0\0\0\0\0\0head\0\0\0\0\xFF\xFF\xFF\xFF\0\0\0\x10", 28)};
    int n = 0;
    for (const std::string& content : contents) {
        std::string path = dir + "/not-a-font-" + std::to_string(n++) + ".ttf";
        std::ofstream(path, std::ios::binary) << content;
        PrintFace face;
        face.pixelSize = 100;
        EXPECT_FALSE(readFileFace(face, path)) << path;
    }
    PrintFace face;
    EXPECT_FALSE(readFileFace(face, dir + "/no-such-font.ttf"));
}

}  // namespace
}  // namespace hlyd
