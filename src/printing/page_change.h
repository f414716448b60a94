#pragma once
// The moment one page ends and the next begins: the footing of the page that ends, the page
// counters, the page range, the status text, the optional line and the heading of the new page.
#include <cstdint>
#include <string>

#include "printing/heading_templates.h"

namespace hlyd {

// The heading and footing of the document being printed.
cHeadings& pageHeading();
cHeadings& pageFooting();

// New heading and footing objects, both marked as contents or not.
void HlydPHInit(bool isContents);
// A page of a code listing; the heading learns the record the page starts with.
void HlydPHEmitForCode(float& topPos, std::int32_t record);
// A page of a project listing.
void HlydPHEmitForProject(float& topPos);
// A page of a procedure table; counts the contents pages.
void HlydPHEmitProcContents(float& topPos, std::int32_t& contentsPages, const std::string& title);
// A page of the project's contents.
void HlydPHEmitProjectProcContents(float& topPos);
// The common page change.
void EmitHeading(float& topPos, const std::string& procText, std::int16_t kind, std::int32_t contentsPage);
// Prints the footing of the current page.
void EmitFooting();
// Prints every line of one heading or footing from `y` down; `y` ends below them.
void HeaderFooterOutput(cHeadings& headings, float& y);
// Refills both objects from the six templates of the settings.
void HeadingsSetup();
// The printed page number that a document starts with, asked of the user when the settings say so.
std::int32_t startPageNumber(std::int32_t printed);

}  // namespace hlyd
