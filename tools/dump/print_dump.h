#pragma once
// hlyd-dump --print: a print run on the recording printer, every call one JSON object a line.
#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace hlyd {

struct PrintDumpOptions {
    std::string file;
    bool pageRange = false;
    std::int32_t firstPage = 0;
    std::int32_t lastPage = 0;
    std::int32_t startPage = 1;
    std::vector<std::string> procs;
};

int dumpPrint(const PrintDumpOptions& options, std::ostream& out, std::ostream& err);

// "FROM-TO" into the options; false when it is no such range.
bool parsePageRange(const std::string& text, PrintDumpOptions& options);

}  // namespace hlyd
