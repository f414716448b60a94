#pragma once
// The Help menu and the toolbar's Help button: the program's help is a folder of HTML pages,
// opened in the desktop's browser.
#include <string>

namespace hlyd {

// The help's first page as the program looks for it: beside the program, then among the
// installed data.
inline constexpr const char* kHelpIndexPage = "help/index.html";
std::string helpIndexPath();

// Whether the help's pages are there; without them every help command and button is off.
bool helpAvailable();
// Opens one page of the help (a file name such as "printing.html") in the desktop's browser; the
// dialogs' Help buttons open theirs.
void showHelpPage(const std::string& page);

void mnuHelContents_Click();  // the contents
void mnuHelSearch_Click();    // the index of topics
void mnuHelHelp_Click();      // how to use the help

}  // namespace hlyd
