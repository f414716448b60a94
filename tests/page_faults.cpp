#include "page_faults.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "test_support.h"

namespace hlyd::test {

namespace {

double area(const TextBox& b) { return (b.x1 - b.x0) * (b.y1 - b.y0); }

// More than 30 % of the smaller box under the other: a pixel's touch of the next line is no fault.
bool over(const TextBox& a, const TextBox& b) {
    double w = std::min(a.x1, b.x1) - std::max(a.x0, b.x0);
    double h = std::min(a.y1, b.y1) - std::max(a.y0, b.y0);
    double smaller = std::min(area(a), area(b));
    return w > 0 && h > 0 && w * h > 0.3 * smaller;
}

bool blank(const TextBox& b) { return area(b) <= 0 || b.text.find_first_not_of(' ') == std::string::npos; }

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string unescaped(std::string text) {
    for (auto [entity, c] : {std::pair{"&quot;", "\""}, {"&apos;", "'"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&amp;", "&"}})
        for (std::size_t at; (at = text.find(entity)) != std::string::npos;)
            text.replace(at, std::string(entity).size(), c);
    return text;
}

}  // namespace

std::vector<std::string> pageFaults(const PageText& page) {
    constexpr double kSlack = 0.5;
    std::vector<std::string> faults;
    std::vector<const TextBox*> inked;
    for (const TextBox& b : page.boxes)
        if (!blank(b)) inked.push_back(&b);
    for (std::size_t i = 0; i < inked.size(); ++i) {
        const TextBox& a = *inked[i];
        for (std::size_t j = i + 1; j < inked.size(); ++j)
            if (over(a, *inked[j]))
                faults.push_back(page.name + ": " + quoted(a.text) + " over " + quoted(inked[j]->text));
        for (auto [top, bottom] : page.bands)
            if (!a.frame && over(a, {0, top, page.width, bottom, "", true}))
                faults.push_back(page.name + ": " + quoted(a.text) + " in the heading's or footing's band");
        if (a.x0 < -kSlack || a.y0 < -kSlack || a.x1 > page.width + kSlack || a.y1 > page.height + kSlack)
            faults.push_back(page.name + ": " + quoted(a.text) + " past the printable area");
    }
    return faults;
}

std::string faultsOf(const std::vector<PageText>& pages) {
    std::vector<std::string> faults;
    for (const PageText& page : pages)
        for (std::string& fault : pageFaults(page)) faults.push_back(std::move(fault));
    if (faults.empty()) return {};
    std::string shown = std::to_string(faults.size()) + " faults on " + std::to_string(pages.size()) + " pages:";
    for (std::size_t i = 0; i < std::min<std::size_t>(faults.size(), 40); ++i) shown += "\n  " + faults[i];
    return shown;
}

// The number in `name="..."` on a line of pdftotext's -bbox output. (No std::regex: its
// automaton trips a false warning of GCC in the sanitized build.)
double attribute(const std::string& line, const std::string& name) {
    std::size_t at = line.find(name + "=\"");
    return at == std::string::npos ? 0 : std::stod(line.substr(at + name.size() + 2));
}

std::vector<PageText> pdfWords(const std::string& pdf) {
    std::vector<PageText> pages;
    std::istringstream lines(run("pdftotext -bbox '" + pdf + "' - 2>/dev/null"));
    for (std::string line; std::getline(lines, line);) {
        if (line.find("<page width=") != std::string::npos) {
            pages.push_back({"page " + std::to_string(pages.size() + 1),
                             attribute(line, "width"),
                             attribute(line, "height"),
                             {},
                             {}});
            continue;
        }
        std::size_t open = line.find("<word "), close = line.rfind("</word>");
        if (pages.empty() || open == std::string::npos || close == std::string::npos) continue;
        std::size_t text = line.find('>', open) + 1;
        pages.back().boxes.push_back({attribute(line, "xMin"), attribute(line, "yMin"), attribute(line, "xMax"),
                                      attribute(line, "yMax"), unescaped(line.substr(text, close - text))});
    }
    return pages;
}

std::string writeCrowdedProject(const std::string& dir) {
    namespace fs = std::filesystem;
    const std::string nested =
            "Forms and modules of the order entry screens kept apart on purpose\\"
            "Shared code of the order entry screens and the reports they print";
    std::string slashed = nested;
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    fs::path folder = fs::path(dir) / fs::path(slashed);
    fs::create_directories(folder);
    std::string calculations = "Attribute VB_Name = \"OrderCalculationsForTheMonthlyReports\"\r\nOption Explicit\r\n";
    for (int f = 1; f <= 90; ++f) {
        std::string name = "CalculateOrderTotalsForCustomer" + std::to_string(f);
        calculations += "Public Function " + name + "(";
        // The last parameter's name grows by a letter from one function to the next, so that the
        // declarations' last lines come in every length up to the page number's place and past it.
        for (int p = 1; p <= 12; ++p)
            calculations += (p > 1 ? ", " : "") + std::string("ByVal OrderQuantity") + std::to_string(p) +
                            std::string(p == 12 ? f % 60 : 0, 'x') + " As Long";
        calculations += ") As Boolean\r\n    " + name + " = OrderQuantity1 > 0\r\nEnd Function\r\n\r\n";
    }
    std::ofstream(folder / "OrderCalculations.bas", std::ios::binary) << calculations;
    std::ofstream(folder / "SmallHelpers.bas", std::ios::binary) << "Attribute VB_Name = \"SmallHelpers\"\r\n"
                                                                 << procedures(150, 1);
    std::string project = (fs::path(dir) / "Crowded.vbp").string();
    std::ofstream(project, std::ios::binary) << "Type=Exe\r\nModule=OrderCalculationsForTheMonthlyReports; " << nested
                                             << "\\OrderCalculations.bas\r\nModule=SmallHelpers; " << nested
                                             << "\\SmallHelpers.bas\r\nName=\"Crowded\"\r\n";
    return project;
}

}  // namespace hlyd::test
