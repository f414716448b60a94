#pragma once
// A limit of the program never leaves part of the user's material out silently: each cut is
// logged, stands in the window's status, and reaches whoever listens (a run without a window says
// it on standard error and ends with a status that tells a script something is missing).
#include <functional>
#include <string>

namespace hlyd {

enum class CutKind {
    PartOfFile,     // reading stopped at a limit of the reader: the lines from there on are missing
    ListingBound,   // the Project File dialog lists the first lines of a project only
    MemberMissing,  // members a project names are not there
};

void tellCut(CutKind kind, const std::string& text);

// How many cuts were told since the start (or the last reset), and the text of the last one.
int cutsTold();
const std::string& lastCut();

using CutListener = std::function<void(CutKind kind, const std::string& text)>;
void setCutListener(CutListener listener);

}  // namespace hlyd
