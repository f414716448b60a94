#pragma once
// The expanded parts of a page header or footer. A template text is split into lines at "|"
// and into tokens at ";"; each section (1 left, 2 centre, 3 right) of each line becomes one
// part, kept under the key "<line><section>" ("23" for line 2 of the right section).
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace hlyd {

class cHeadingPart {
public:
    bool bIsDynamic = false;      // the text is expanded again for every page
    bool cbPrintAsRoman = false;  // @page in Roman numerals; also marks a contents page
    std::int32_t clCurrentRecord = 0;
    std::vector<std::string> DynamicTag;  // the tokens as given, for the later expansions
    std::int32_t PrintPage = 0;
    std::string ProcText;
    bool IsContent = false;

    // Takes the tokens and expands them.
    void HeadingText(const std::vector<std::string>& tokens);
    const std::string& HeadingText() const { return text_; }

    // Takes the section number and computes the printer X of the text, cutting a centre or right
    // text that does not fit. Later expansions keep this X: a centred page number stays put.
    void XPos(std::int16_t section);
    float XPos() const { return x_; }

private:
    void expand(const std::vector<std::string>& tokens);

    std::string text_;
    float x_ = 0;
};

class cHeadings {
public:
    std::int16_t TotalLines = 0;  // the most lines of any section; never lowered by Clear
    std::int32_t clCurrentRecord = 0;
    std::string csProcHeading;
    std::int32_t PrintPageNumber = 0;
    bool UseRoman = false;
    bool IsContents = false;

    // A new part with the values in force, expanded from the tokens and placed in its section.
    void Add(std::int16_t anLine, std::int16_t anSection, const std::vector<std::string>& asDescription);
    void Clear() { parts_.clear(); }
    // The part with the page number in force; a section without that line raises error 9.
    cHeadingPart& Item(const std::string& key);
    // The same, but nullptr for a section without that line.
    cHeadingPart* FindItem(const std::string& key);
    std::size_t Count() const { return parts_.size(); }

private:
    std::map<std::string, cHeadingPart> parts_;
};

// The key of a line's section: "23" for line 2, section 3.
std::string headingKey(int line, int section);

// Adds the lines of one section's template text to the headings.
void HeadingExtract(const std::string& sectionText, std::int16_t section, cHeadings& headings);

}  // namespace hlyd
