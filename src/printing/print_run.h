#pragma once
// A print run over the files in the table, without the dialog: what the print command does once
// the user has chosen, and what the tools and the command line do with the defaults.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace hlyd {

struct PrintRunRequest {
    bool allFiles = true;                // every file of the table; else the current one
    std::vector<std::string> procNames;  // only these procedures of a source file
    bool pageRange = false;
    std::int32_t firstPage = 0;
    std::int32_t lastPage = 0;
    std::int32_t startPage = 1;                               // the printed number of the first page
    std::string optionalLine;                                 // the optional heading line
    std::string outputPath;                                   // for a printer that writes a file
    bool sourcesOnly = false;                                 // a project's or group's members, without its own listing
    std::function<void(const std::string& file)> fileBegins;  // hears each file as it is read
};

struct PrintRunResult {
    std::int32_t printStatus = 0;
    bool written = true;               // the printer kept the job (a file printer wrote its file)
    std::string error;                 // why not
    std::vector<std::string> skipped;  // files that could not be read
    std::int32_t pagesAtStart = 0;     // the printer's count of delivered pages when the run began
    std::int32_t pages = 0;            // pages the run delivered
};

// Prints with the settings in force on the current printer; the current file comes back after.
PrintRunResult runPrint(const PrintRunRequest& request);

}  // namespace hlyd
