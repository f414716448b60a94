#pragma once
// The table of open files and the state of the one file whose analysis is loaded: its token
// elements and its procedure list.
#include <cstdint>
#include <string>
#include <vector>

#include "analysis/source_file.h"
#include "settings/attributes.h"

namespace hlyd {

// FileType of a table entry.
enum : std::int16_t { kFileGroup = 0, kFileProject = 1, kFileSource = 2 };

struct cFileDesc {
    std::string FileName;
    std::int16_t FileType = kFileSource;
    bool IsSelected = false;
    std::int16_t WhichProject = 0;
    std::int16_t WhichFile = 0;
};

// An ordered collection with positions from 1; removing an entry closes the gap.
class FileCollection {
public:
    int Count() const { return static_cast<int>(items_.size()); }
    cFileDesc& Item(int position) { return items_.at(position - 1); }
    const cFileDesc& Item(int position) const { return items_.at(position - 1); }
    void Add(cFileDesc desc) { items_.push_back(std::move(desc)); }
    void Remove(int position) { items_.erase(items_.begin() + (position - 1)); }
    void Clear() { items_.clear(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<cFileDesc> items_;
};

struct ProcEntry {
    std::string Name;
    std::string Type;
    std::int32_t FirstRecord = 0;
    std::int32_t LastRecord = 0;
    std::int32_t FirstStatement = 0;
    std::int32_t LastStatement = 0;
    bool IsPublic = false;
    std::int16_t IsEvent = 0;
    std::int32_t ProcPage = 0;  // the printed page its declaration starts on, once printed
    bool ProcPrinted = false;   // printed in this run: only those stand in a procedure table
    std::int32_t ListIndex = 0;
};

struct FileTableModule {
    FileCollection oFile;
    std::int16_t wCurrentFile = 0;
    SourceFile source;  // wFileHandle: open only while the file is being read
    std::string sVBName;
    bool bInConditional = false;
    bool projectOpen = false;                    // a project or group is being shown
    std::string openFailure;                     // why the last load could not open its file
    std::string readingCut;                      // what a limit of the reader left out of the loaded file
    std::vector<TokenElement> TokenElements{0};  // element row of each token, from 1
    std::vector<ProcEntry> yProc{ProcEntry{}};   // from 0
};

FileTableModule& fileTable();
void resetFileTable();

// Shorthands for the most used parts.
inline FileCollection& oFile() { return fileTable().oFile; }
inline std::vector<ProcEntry>& yProc() { return fileTable().yProc; }

}  // namespace hlyd
