#pragma once
// A file printed through a printer of the desktop, the built-in "PDF" printer unless another is
// named, as the print command does with the settings in force.
#include <iosfwd>
#include <string>

namespace hlyd {

struct PdfRequest {
    std::string file;
    std::string out;
    std::string printer = "PDF";
};

// Exit status: 0 written, 2 bad file or keyword data, 3 the output could not be written.
int renderPdf(const PdfRequest& request, std::ostream& out, std::ostream& err);

}  // namespace hlyd
