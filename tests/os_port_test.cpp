// The operating-system port: files that are no regular files are never opened, lines are read as
// a stream with a bound on memory, and a replace keeps the file's mode and links.
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "platform/line_reader.h"
#include "platform/os.h"
#include "platform/path_parts.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace hlyd {
namespace {

class OsPortTest : public test::ConfigDirTest {
protected:
    std::string path(const std::string& name) const { return (fs::path(dir) / name).string(); }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string fifo(const std::string& name) const {
        EXPECT_EQ(::mkfifo(path(name).c_str(), 0644), 0);
        return path(name);
    }
    static std::string read(const std::string& file) {
        std::ifstream in(file, std::ios::binary);
        std::ostringstream all;
        all << in.rdbuf();
        return all.str();
    }
    static unsigned modeOf(const std::string& file) {
        struct stat st {};
        ::stat(file.c_str(), &st);
        return st.st_mode & 07777;
    }
};

// Both separators cut, as project members are named in Windows form; a root keeps its separator.
TEST(PathParts, NameFirstThenItsFolder) {
    auto split = [](const std::string& path) {
        NameAndFolder parts = nameAndFolder(path);
        return parts.name + "|" + parts.folder;
    };
    EXPECT_EQ(split("/work/proj/Module1.bas"), "Module1.bas|/work/proj");
    EXPECT_EQ(split("C:\\VB\\Forms\\Main.frm"), "Main.frm|C:\\VB\\Forms");
    EXPECT_EQ(split("/work/proj\\sub/Class1.cls"), "Class1.cls|/work/proj\\sub");
    EXPECT_EQ(split("Sample.bas"), "Sample.bas|");
    EXPECT_EQ(split("/Sample.bas"), "Sample.bas|/");
    EXPECT_EQ(split("C:\\Sample.bas"), "Sample.bas|C:\\");
}

TEST_F(OsPortTest, OnlyRegularFilesAreOpened) {
    std::string pipe = fifo("pipe");
    os::InputFile in;
    EXPECT_EQ(in.open(pipe), os::kNotRegularFile);  // at once: no writer is waited for
    EXPECT_EQ(in.open("/dev/zero"), os::kNotRegularFile);
    EXPECT_EQ(in.open(dir), EISDIR);
    EXPECT_EQ(in.open(path("missing")), ENOENT);
    EXPECT_EQ(in.open(write("plain.bas", "x = 1\n")), 0);
    EXPECT_EQ(in.size(), 6u);
    os::OutputFile out;
    EXPECT_EQ(out.open(pipe, true), os::kNotRegularFile);
    EXPECT_EQ(os::fileInfo(pipe).kind, os::FileKind::Fifo);
    EXPECT_EQ(os::fileInfo("/dev/null").kind, os::FileKind::Device);
}

// Every kind of line end, split at every place across the reader's blocks, reads the same.
TEST_F(OsPortTest, LinesReadTheSameWhereverABlockEnds) {
    const std::string text = "one\r\ntwo\rthree\nfour\r\n\r\nlast";
    const std::vector<std::string> expected = {"one", "two", "three", "four", "", "last"};
    std::string file = write("ends.bas", text);
    for (std::size_t chunk = 1; chunk <= text.size(); ++chunk) {
        LineReader reader(16, chunk);
        ASSERT_EQ(reader.open(file), 0);
        std::vector<std::string> lines;
        while (!reader.atEnd()) lines.emplace_back(reader.readLine());
        EXPECT_EQ(lines, expected) << "block of " << chunk;
        EXPECT_EQ(reader.offset(), text.size());
    }
    // Lines of every length around groups of eight and sixteen bytes, with bytes that differ from a line end
    // by one bit or by one, which a look at several bytes at once must not take for one.
    std::string many;
    std::vector<std::string> lines;
    const char* ends[] = {"\r\n", "\n", "\r"};
    for (std::size_t length = 0; length <= 40; ++length) {
        std::string line;
        for (std::size_t i = 0; i < length; ++i) line += "a\x8A\x8D\x0B\x0C\x09\x0E"[i % 7];
        lines.push_back(line);
        many += line + ends[length % 3];
    }
    LineReader reader(64);
    ASSERT_EQ(reader.open(write("lengths.bas", many)), 0);
    std::vector<std::string> read;
    while (!reader.atEnd()) read.emplace_back(reader.readLine());
    EXPECT_EQ(read, lines);
}

TEST_F(OsPortTest, LongLineIsCutAndTheReaderStaysSmall) {
    std::string file = path("huge.bas");
    {
        std::ofstream out(file, std::ios::binary);
        out << "x = 1\r\n";
        std::string block(1 << 20, 'a');
        for (int i = 0; i < 8; ++i) out << block;  // an 8 MB second line
        out << "\r\ny = 2\r\n";
    }
    LineReader reader(2048);
    ASSERT_EQ(reader.open(file), 0);
    EXPECT_EQ(reader.readLine(), "x = 1");
    EXPECT_EQ(reader.readLine().size(), 2049u);
    EXPECT_TRUE(reader.lastLineCut());
    EXPECT_EQ(reader.readLine(), "y = 2");
    EXPECT_FALSE(reader.lastLineCut());
    EXPECT_TRUE(reader.atEnd());
    EXPECT_LT(reader.bytesHeld(), 128u * 1024);
}

TEST_F(OsPortTest, ReplaceKeepsModeWritesThroughLinksAndRefusesReadOnly) {
    std::string target = write("real.ini", "old\n");
    ::chmod(target.c_str(), 0640);
    std::string link = path("link.ini");
    fs::create_symlink(target, link);
    EXPECT_EQ(os::replaceFile(link, "new\n"), 0);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(read(target), "new\n");
    EXPECT_EQ(modeOf(target), 0640u);

    ::chmod(target.c_str(), 0444);  // refused by its mode, also to root
    EXPECT_EQ(os::replaceFile(link, "lost\n"), os::kReadOnlyFile);
    EXPECT_EQ(read(target), "new\n");
    EXPECT_EQ(modeOf(target), 0444u);
    EXPECT_EQ(os::replaceFile(fifo("pipe.ini"), "x"), os::kNotRegularFile);
    // Nothing is left beside the files.
    std::vector<std::string> names;
    os::listDirectory(dir, names);
    EXPECT_EQ(names.size(), 3u);
}

// Every name the file system allows can be replaced: the temporary file beside it is never
// longer than a folder entry may be, and nothing is left beside the target.
TEST_F(OsPortTest, ReplaceWorksUpToTheLongestNameAllowed) {
    for (std::size_t length : {200u, 243u, 250u, 255u}) {
        SCOPED_TRACE(length);
        std::string target = path(std::string(length - 4, 'n') + ".pdf");
        EXPECT_EQ(os::replaceFile(target, "one"), 0);
        EXPECT_EQ(os::replaceFile(target, "two"), 0);
        EXPECT_EQ(read(target), "two");
        std::vector<std::string> names;
        os::listDirectory(dir, names);
        EXPECT_EQ(names.size(), 1u);
        fs::remove(target);
    }
}

}  // namespace
}  // namespace hlyd
