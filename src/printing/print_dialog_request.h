#pragma once
// What the print command is asked to print: the settings as they stand, or the user's choices in
// the Print dialog, which the shell reads into it. The run below knows this struct alone, never
// the dialog.
#include <cstdint>
#include <string>

namespace hlyd {

// AllFiles of the request.
constexpr std::int16_t kPrintCurrentFile = 1;
constexpr std::int16_t kPrintSomeFiles = 2;
constexpr std::int16_t kPrintAllFiles = 3;

struct PrintDialogRequest {
    std::int16_t AllFiles = kPrintCurrentFile;
    bool ProcsSelected = false;  // the procedures chosen are in printState().SelectedProcs
    bool ContentsOnly = false;   // only the procedure table of the current file or project
    bool ProcContents = false;
    bool TableOfContents = false;
    bool CrossReference = false;
    bool PrintContinuous = false;
    bool SkipAttributes = false;
    bool Code = true;
    bool FormDef = true;
    std::string OptionalLine;
    bool PageRange = false;
    std::int32_t FirstPage = 0;
    std::int32_t LastPage = 0;
    std::int32_t PrintedPageNumber = 0;  // the number before the first page's
    bool NoHistory = false;
};

// The request as the settings stand, for a print without the dialog.
PrintDialogRequest requestFromSettings();

}  // namespace hlyd
