// The settings file through cINIHandler: typed reads with their odd spellings, and writes that
// keep everything else in the file and never leave a half-written file behind.
#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "settings/ini_handler.h"
#include "settings/profile_file.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

class IniHandlerTest : public test::ConfigDirTest {
protected:
    void SetUp() override {
        ConfigDirTest::SetUp();
        ini.setINIFileName((fs::path(dir) / "TEST.INI").string());
    }
    void writeFile(const std::string& text) {
        std::ofstream(ini.INIFileName(), std::ios::binary) << text;
        clearProfileCache();
    }
    std::string fileText() const {
        std::ifstream in(ini.INIFileName(), std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }

    cINIHandler ini;
};

TEST_F(IniHandlerTest, BooleanSpellingsAndDefaults) {
    writeFile("[B]\nf1=no\nf2= No \nf3=False\nf4=0\nt1=yes\nt2=True\nt3=-1\nother=maybe\nempty=\n");
    for (const char* key : {"f1", "f2", "f3", "f4"}) EXPECT_FALSE(ini.ReadBool(key, true, std::string("B"))) << key;
    for (const char* key : {"t1", "t2", "t3"}) EXPECT_TRUE(ini.ReadBool(key, false, std::string("B"))) << key;
    for (bool def : {false, true}) {
        EXPECT_EQ(ini.ReadBool("other", def, std::string("B")), def);
        EXPECT_EQ(ini.ReadBool("empty", def, std::string("B")), def);
        EXPECT_EQ(ini.ReadBool("missing", def, std::string("B")), def);
    }
}

TEST_F(IniHandlerTest, NumbersReadAsValAndClamped) {
    writeFile("[N]\nmixed=720abc\nletters=abc\nneg=-4\nbig=50\n");
    EXPECT_EQ(ini.ReadNumber("mixed", 5, std::nullopt, std::nullopt, "N"), 720);
    // The default stands in only for a missing key, not for a value that holds no number.
    EXPECT_EQ(ini.ReadNumber("letters", 5), 0);
    EXPECT_EQ(ini.ReadNumber("missing", 5), 5);
    EXPECT_EQ(ini.ReadNumber("neg", 0), -4);
    EXPECT_EQ(ini.ReadNumber("big", 1, 1, 10), 10);
    EXPECT_EQ(ini.ReadNumber("neg", 1, 1, 10), 1);
    EXPECT_EQ(ini.ReadNumber("mixed", 1, 1, 1000), 720);
}

TEST_F(IniHandlerTest, ReadWordsCollapsesDoubleBlanksOnce) {
    writeFile("[W]\nthree=A   B\nsingle=X Y Z\n");
    EXPECT_EQ(ini.ReadWords("three", "", std::string("W")), (std::vector<std::string>{"A", "", "B"}));
    EXPECT_EQ(ini.ReadWords("single"), (std::vector<std::string>{"X", "Y", "Z"}));
    EXPECT_EQ(ini.ReadWords("missing", "1 2"), (std::vector<std::string>{"1", "2"}));
}

TEST_F(IniHandlerTest, SectionBracketsCaseInsensitiveLookupAndTheReadLimit) {
    ini.setSection("[A]");
    EXPECT_EQ(ini.Section(), "|A|");
    writeFile("[MixedCase]\nSomeKey=found\nlong=" + std::string(300, 'x') + "\n");
    EXPECT_EQ(ini.ReadString("long", "", "MixedCase"), std::string(255, 'x'));
    EXPECT_EQ(ini.ReadString("somekey", "dflt", "MIXEDCASE"), "found");
    EXPECT_EQ(ini.ReadString("SOMEKEY", "dflt", "mixedcase"), "found");
    EXPECT_EQ(ini.ReadString("SomeKey", "dflt", "Other"), "dflt");
}

TEST_F(IniHandlerTest, WriteCreatesFileSectionAndKey) {
    ASSERT_FALSE(fs::exists(ini.INIFileName()));
    ini.WriteString("Name", "hello world", std::string("New"));
    ini.WriteBool("Flag", true);
    ini.WriteNumber("Count", 42);
    EXPECT_EQ(fileText(), "[New]\nName=hello world\nFlag=Yes\nCount=42\n");
    ini.WriteString("Name", "again", std::string("Second"));
    EXPECT_EQ(ini.ReadString("Name", "", "New"), "hello world");
    EXPECT_EQ(ini.ReadString("Name", "", "Second"), "again");
}

TEST_F(IniHandlerTest, WriteKeepsEveryOtherLineInOrder) {
    const std::string before =
            "; leading comment\n"
            "stray line without equals\n"
            "[One]\n"
            "a = 1\n"
            "; comment inside\n"
            "??? unknown\n"
            "\n"
            "[Two]\n"
            "b=2\n"
            "c=\"quoted\"\n";
    writeFile(before);
    ini.WriteString("b", "3", std::string("Two"));
    std::string expected = before;
    expected.replace(expected.find("b=2"), 3, "b=3");
    EXPECT_EQ(fileText(), expected);

    ini.WriteString("n", "new", std::string("one"));
    expected.insert(expected.find("\n\n[Two]") + 1, "n=new\n");
    EXPECT_EQ(fileText(), expected);
    // Quotes are taken off on reading; a written value goes out as it stands.
    EXPECT_EQ(ini.ReadString("c", "", "Two"), "quoted");
    EXPECT_EQ(ini.ReadString("a", "", "One"), "1");
    // Every write went through a temporary file, and none stays behind.
    ini.DeleteKey("n", std::string("One"));
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(dir)) names.push_back(entry.path().filename().string());
    EXPECT_EQ(names, std::vector<std::string>{"TEST.INI"});
}

TEST_F(IniHandlerTest, DeleteKeyAndSection) {
    writeFile("[One]\na=1\nb=2\n\n[Two]\nc=3\n\n[Three]\nd=4\n");
    ini.DeleteKey("A", std::string("one"));
    EXPECT_EQ(fileText(), "[One]\nb=2\n\n[Two]\nc=3\n\n[Three]\nd=4\n");
    ini.DeleteSection("TWO");
    EXPECT_EQ(fileText(), "[One]\nb=2\n\n[Three]\nd=4\n");
    EXPECT_EQ(ini.ReadString("c", "gone", "Two"), "gone");
    ini.DeleteKey("missing", std::string("Three"));
    ini.DeleteSection("Nowhere");
    EXPECT_EQ(fileText(), "[One]\nb=2\n\n[Three]\nd=4\n");
}

// Every run saves its printer and window; a value that has not changed costs the disk nothing.
TEST_F(IniHandlerTest, AWriteOfTheValueAKeyHasLeavesTheFileAsItIs) {
    writeFile("[S]\nk=v\n");
    auto inode = [this] {
        struct stat info {};
        ::stat(ini.INIFileName().c_str(), &info);
        return info.st_ino;
    };
    auto before = inode();
    EXPECT_NE(ini.WriteString("k", "v", std::string("s")), 0);
    ini.DeleteKey("missing", std::string("S"));
    EXPECT_EQ(inode(), before);
    EXPECT_NE(ini.WriteString("k", "w", std::string("S")), 0);
    EXPECT_NE(inode(), before);
    EXPECT_EQ(fileText(), "[S]\nk=w\n");
}

TEST_F(IniHandlerTest, WriteKeepsTheModeAndALinkToTheFile) {
    fs::path real = fs::path(dir) / "shared" / "REAL.INI";
    fs::create_directories(real.parent_path());
    std::ofstream(real, std::ios::binary) << "[S]\nk=v\n";
    fs::permissions(real, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink(real, ini.INIFileName());
    clearProfileCache();
    EXPECT_NE(ini.WriteString("k", "w", std::string("S")), 0);
    EXPECT_TRUE(fs::is_symlink(ini.INIFileName()));
    EXPECT_EQ(fileText(), "[S]\nk=w\n");
    EXPECT_EQ(fs::status(real).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST_F(IniHandlerTest, FailedWriteIsLostAndLeavesOldFile) {
    const std::string before = "[Keep]\nk=v\n";
    writeFile(before);
    // The user made the file read-only: the mode bits decide, also for root.
    fs::permissions(ini.INIFileName(), fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    EXPECT_EQ(ini.WriteString("k", "changed", std::string("Keep")), 0);
    EXPECT_EQ(fileText(), before);
    EXPECT_EQ(ini.ReadString("k", "", "Keep"), "v");
    EXPECT_EQ(fs::status(ini.INIFileName()).permissions() & fs::perms::all,
              fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);

    // A file under a regular file cannot even have a directory.
    std::ofstream(fs::path(dir) / "plain") << "x";
    cINIHandler lost;
    lost.setINIFileName((fs::path(dir) / "plain" / "sub" / "X.INI").string());
    EXPECT_EQ(lost.WriteString("k", "v", std::string("S")), 0);
    EXPECT_EQ(lost.ReadString("k", "dflt", "S"), "dflt");
}

}  // namespace
}  // namespace hlyd
