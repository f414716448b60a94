// The faces a print remembers for the next: read back from their files they are the faces Qt's font
// database gives, figure for figure; a remembered file that is damaged, out of date, not a file or
// a link is passed over, and the faces come out as without it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/pdf/print_faces.h"
#include "platform/qt/classic_fonts.h"
#include "platform/pdf/face_files.h"
#include "platform/qt/face_source.h"
#include "platform/qt/qt_faces.h"
#include "platform/qt/qt_text.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

// Everything of a face that a print uses, as text to compare.
std::string figuresOf(const PrintFace& face) {
    std::ostringstream out;
    out.precision(17);
    out << face.program->familyName() << '/' << face.program->styleName() << ' ' << face.ascent << ' '
        << face.lineSpacing << ' ' << face.underlinePosition << ' ' << face.lineThickness << ' ' << face.fixedAdvance
        << ' ' << face.capHeight << ' ' << face.program->table("glyf").size();
    for (int c = 0x20; c < 256; ++c) out << ' ' << face.glyph[c] << ':' << face.advance[c];
    return out.str();
}

std::vector<std::string> printedFaces() {
    PrintFaces faces(600, makeQtFace);
    std::vector<std::string> figures;
    for (const char* name : {"Courier New", "Arial"})
        for (int style = 0; style < 4; ++style) {
            FaceKey key{toUtf8(resolveFamily(name).family), 10, (style & 1) != 0, (style & 2) != 0};
            figures.push_back(figuresOf(faces.face(key)));
        }
    return figures;
}

std::string textOf(const std::string& path) {
    std::ifstream in(path);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

class FaceFilesTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        test::ConfigDirTest::SetUp();
        file = dir + "/face-files";
    }
    void TearDown() override {
        forgetFaceFiles();
        test::ConfigDirTest::TearDown();
    }
    // The faces of a first print, which remembers their files in `file`.
    std::vector<std::string> firstPrint() {
        EXPECT_FALSE(loadFaceFiles(file));
        std::vector<std::string> figures = printedFaces();
        saveFaceFiles();
        forgetFaceFiles();
        return figures;
    }
    std::string file;
};

TEST_F(FaceFilesTest, ALaterPrintReadsTheSameFacesFromTheirFiles) {
    std::vector<std::string> first = firstPrint();
    std::string remembered = textOf(file);
    EXPECT_NE(remembered.find("\tLiberation Mono\t"), std::string::npos) << remembered;
    ASSERT_TRUE(loadFaceFiles(file));
    EXPECT_EQ(printedFaces(), first);
    saveFaceFiles();  // nothing learnt: the file stays as it was
    EXPECT_EQ(textOf(file), remembered);
}

// Fontconfig names only the configuration files it read: a user's first fonts.conf, written after
// a print, must still make the next print look its faces up afresh.
TEST_F(FaceFilesTest, AUserConfigurationWrittenAfterAPrintIsSeen) {
    const char* before = std::getenv("XDG_CONFIG_HOME");
    std::string kept = before ? before : "";
    std::string config = dir + "/xdg";
    fs::create_directory(config);
    setenv("XDG_CONFIG_HOME", config.c_str(), 1);
    firstPrint();
    fs::create_directory(config + "/fontconfig");
    std::ofstream(config + "/fontconfig/fonts.conf") << "<fontconfig/>\n";
    EXPECT_FALSE(loadFaceFiles(file));
    if (before) setenv("XDG_CONFIG_HOME", kept.c_str(), 1);
    else unsetenv("XDG_CONFIG_HOME");
}

// The variables that point the font configuration at other files are part of what a face was
// found under: set after a print, the next print looks its faces up afresh.
TEST_F(FaceFilesTest, AFontConfigurationVariableSetAfterAPrintIsSeen) {
    ASSERT_EQ(std::getenv("FONTCONFIG_PATH"), nullptr);
    firstPrint();
    ASSERT_TRUE(loadFaceFiles(file));
    forgetFaceFiles();
    setenv("FONTCONFIG_PATH", dir.c_str(), 1);
    bool loaded = loadFaceFiles(file);
    unsetenv("FONTCONFIG_PATH");
    EXPECT_FALSE(loaded);
}

enum class Spoiled { Damaged, FontChanged, SourceChanged, NotAFile, Link };

class SpoiledFaceFiles : public FaceFilesTest, public testing::WithParamInterface<Spoiled> {
protected:
    void spoil(const std::string& remembered) {
        std::string text = remembered;
        switch (GetParam()) {
            case Spoiled::Damaged: text = text.substr(0, text.size() / 2) + "face\tx\t\n"; break;
            case Spoiled::FontChanged: {
                // The first face's file had another size when it was remembered.
                std::size_t face = text.find("\nface\t");
                std::size_t size = face;
                for (int field = 0; field < 3; ++field) size = text.find('\t', size + 1);
                text.insert(size + 1, "1");
                break;
            }
            case Spoiled::SourceChanged: text.insert(text.find("\nsource\t") + 8, "1"); break;
            case Spoiled::NotAFile: fs::remove(file), fs::create_directory(file); return;
            case Spoiled::Link:
                fs::remove(file);
                std::ofstream(dir + "/elsewhere") << text;
                fs::create_symlink(dir + "/elsewhere", file);
                return;
        }
        std::ofstream(file, std::ios::trunc) << text;
    }
};

TEST_P(SpoiledFaceFiles, ArePassedOverAndTheFacesComeOutTheSame) {
    std::vector<std::string> first = firstPrint();
    spoil(textOf(file));
    EXPECT_FALSE(loadFaceFiles(file));
    EXPECT_EQ(printedFaces(), first);
    saveFaceFiles();
    forgetFaceFiles();
    if (GetParam() == Spoiled::NotAFile) return;
    if (GetParam() == Spoiled::Link) {
        EXPECT_TRUE(fs::is_symlink(file));  // not replaced, nor trusted
        EXPECT_FALSE(loadFaceFiles(file));
        return;
    }
    EXPECT_TRUE(loadFaceFiles(file)) << "written afresh:\n" << textOf(file);
    EXPECT_EQ(printedFaces(), first);
}

INSTANTIATE_TEST_SUITE_P(Ways, SpoiledFaceFiles,
                         testing::Values(Spoiled::Damaged, Spoiled::FontChanged, Spoiled::SourceChanged,
                                         Spoiled::NotAFile, Spoiled::Link));

}  // namespace
}  // namespace hlyd
