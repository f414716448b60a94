#pragma once
// Visual Basic project files and project groups: every line kept, the member files found among
// them, and whether those files exist.
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace hlyd {

class LineReader;

// Project and group lines are read a line at a time and none is kept beyond this: far longer
// than any line the IDE writes, and a bound on what a file that is no project can cost.
constexpr std::size_t kLongestProjectLine = std::size_t{64} * 1024;

// Line types of a project.
enum : std::int32_t {
    kLineNone = 0,
    kLineForm = 1,
    kLineModule = 2,
    kLineClass = 3,
    kLineUserControl = 4,
    kLineUserDocument = 5,
    kLinePropertyPage = 6,
    kLineDesigner = 7,
    kLineReference = 8,
    kLineObject = 9,
    kLineOtherKeyword = 10,
};

// "Invalid FileName" and "Invalid FileExt" carry this number.
constexpr int kProjectArgumentError = static_cast<int>(0x80040003u);

struct cProjectLine {
    std::string AsRecord;
    std::string FileName;
    std::string FileNameBase;
    std::string FileNameDrive;
    std::string FileNameExt;
    std::string FileNamePath;
    std::int32_t FileType = kLineNone;
    std::int16_t KeyWord = 0;
    bool SyntaxError = false;
    std::vector<std::string> Value;  // Value[0] is the first value
    std::int16_t ValueCount = 0;
    std::string VBName;
    std::string WholeFile;
    std::optional<std::string> Key;  // for members that were found: FileType and VBName
};

class cProjectFile {
public:
    std::int16_t ClassCount = 0;
    std::vector<std::int16_t> Classes;
    std::string Dialect = "6";
    std::string FileName;
    std::string FileNameBase, FileNameDrive, FileNameExt, FileNamePath;
    std::int16_t FileType = 1;
    std::int16_t FormCount = 0;
    std::vector<std::int16_t> Forms;
    std::int16_t ModuleCount = 0;
    std::vector<std::int16_t> Modules;
    std::int16_t ObjectCount = 0;
    std::int16_t ReferenceCount = 0;
    std::vector<cProjectLine> ProjectRecords;  // line n is ProjectRecords[n - 1]
    std::int16_t Records = 0;

    cProjectFile();
    void ProcessProjectFile(const std::string& fileName, std::string formExt, std::string moduleExt);
    void ProcessProjectGroupFile(const std::string& fileName);
    void ParseProjectRecord(cProjectLine& line, const std::string& formExt, const std::string& moduleExt);

    cProjectLine& line(int n) { return ProjectRecords.at(n - 1); }
    // The members the project names that are not there, as the project names them.
    const std::vector<std::string>& membersNotFound() const { return membersNotFound_; }

    // A failure is told (with Retry where it may help) and leaves BabStatus 12.
    static bool openForReading(const std::string& fileName, LineReader& in);

private:
    bool readLines(LineReader& lines, const std::function<void(const std::string&)>& perLine);
    void addMember(cProjectLine& line);
    bool memberExists(cProjectLine& line);
    void parseValues(cProjectLine& line, const std::string& value);
    int filesFound_ = 0;
    int filesNotFound_ = 0;
    std::vector<std::string> membersNotFound_;
};

// The projects and groups of one listing, from position 1.
class cProjectFiles {
public:
    int Count() const { return static_cast<int>(items_.size()); }
    cProjectFile& Item(int position) { return *items_.at(position - 1); }
    void Add(std::unique_ptr<cProjectFile> project) { items_.push_back(std::move(project)); }

private:
    std::vector<std::unique_ptr<cProjectFile>> items_;
};

cProjectFiles& oProjectFiles();
void resetProjectFiles();
// Puts `next` in force and hands back the listing it replaces.
std::unique_ptr<cProjectFiles> replaceProjectFiles(std::unique_ptr<cProjectFiles> next);

// Splits a name into drive (with its colon), path (with its separator), base and extension
// (with its point); "\" and "/" both separate directories.
void ParseFileName(const std::string& file, std::string& drive, std::string& path, std::string& base, std::string& ext,
                   bool& bad);

// The keyword of a project line and its index, 1 to 67.
const std::array<const char*, 68>& projectKeywords();

}  // namespace hlyd
