#pragma once
// From a name in the file shown to its declaration (F12), or to every place that uses it
// (Shift+F12), across the open files, by their cross-reference. The index is made when first asked
// and kept while the same files are open.
#include <optional>
#include <vector>

#include "display/text_search.h"
#include "display/view_find.h"

namespace hlyd {

// The declaration of the name at the place of the file shown, as a hit to show; none where the
// place holds no name that the open files declare.
std::optional<FileHit> declarationOfNameAt(TextPlace place);

// The declaration first, then every use of the name at the place, in the order of the files.
std::vector<FileHit> usesOfNameAt(TextPlace place);

// F12: shows the declaration of the name at the selection, or says in the status that there is none.
void goToDeclaration();

}  // namespace hlyd
