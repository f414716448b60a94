#pragma once
// Where a command-line run puts the file in the table: on the printer the options name (a PDF
// file, or ink on paper), and into an HTML document. Failures go to the job.
#include <string>

namespace hlyd {

// Whether every file the run would write may be written (the log, the print history, the PDF and
// the HTML document): a refusal is told and fails the job before anything is written.
bool commandLineOutputsAllowed(const std::string& source);

// Prints the file table (a project's members only) as one job; `source` names the PDF file when
// the PDF printer is in force and the options name none.
void printForCommandLine(const std::string& source);

// The HTML document of the first file of the table: for a project, its listing.
void exportHtmlForCommandLine();

}  // namespace hlyd
