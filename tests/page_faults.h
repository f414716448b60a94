#pragma once
// The text of printed pages as boxes, and what is wrong with where they stand: text over text,
// text in the bands the heading and footing keep, text past the printable area. The recording
// printer's runs and the words a PDF gives back are read alike, each in its own unit.
#include <string>
#include <vector>

namespace hlyd::test {

struct TextBox {
    double x0 = 0, y0 = 0, x1 = 0, y1 = 0;
    std::string text;
    bool frame = false;  // of the heading or the footing, which stand in their own bands
};

struct PageText {
    std::string name;                              // how a fault names the page
    double width = 0, height = 0;                  // the printable area, from (0, 0)
    std::vector<std::pair<double, double>> bands;  // from y to y where only the frame's text stands
    std::vector<TextBox> boxes;
};

// One line for each fault, naming the page and the texts; none when the page is sound. Boxes
// that share less than 30 % of the smaller one only touch; blank and empty boxes are left out.
std::vector<std::string> pageFaults(const PageText& page);
// The faults of all the pages, the first forty of them a line each; empty when there are none.
std::string faultsOf(const std::vector<PageText>& pages);

// The words of every page of a PDF, as `pdftotext -bbox` gives them, in points from the sheet's
// top left corner. Empty when the tool is missing.
std::vector<PageText> pdfWords(const std::string& pdf);

// A project written under `dir` for the pages to be tested on: folders of long names nested
// twice, a module of functions whose declarations of twelve parameters take several lines, and
// a module of many small procedures. Returns the project file's path.
std::string writeCrowdedProject(const std::string& dir);

}  // namespace hlyd::test
