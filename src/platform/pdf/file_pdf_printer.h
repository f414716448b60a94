#pragma once
// The built-in "PDF" printer without any toolkit: every face read from the file an earlier print
// found for it (face-files), the family of every font name as that print resolved it. What it
// cannot answer as the toolkit's printer would, it does not guess: it throws FacesUnanswered, and
// the run is done again by the toolkit's printer, which also learns what was missing.
#include "platform/pdf/page_printer.h"

namespace hlyd {

// Not a std::exception: nothing on the way catches it as a failure of the run.
struct FacesUnanswered {
    std::string what;
};

class FilePdfPrinter : public PagePrinter {
public:
    FilePdfPrinter();
    ~FilePdfPrinter() override;

    std::vector<std::string> fonts() const override;
    std::size_t fontCount() const override;
    std::string deviceName() const override { return kPdfPrinterName; }

protected:
    ResolvedFamily resolveFamily(const std::string& name) override;
    std::uint32_t rgbOfColour(std::uint32_t colour) override;
    PrintSheet sheet() const override;
    void setLandscape(bool landscape) override { landscape_ = landscape; }
    int setPaper(std::int32_t code) override;

private:
    std::int32_t paper_ = 1;
    bool landscape_ = false;
};

// The sheet of the PDF printer for a paper code (Letter for one it does not know), at `dotsPerInch`.
PrintSheet pdfPrinterSheet(std::int32_t paperCode, bool landscape, int dotsPerInch);

}  // namespace hlyd
