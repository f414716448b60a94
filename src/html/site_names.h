#pragma once
// The file names of a site's member pages: made of the member's own file name, so that a reader
// knows them, but of letters, digits, "_" and "-" only; and unique without regard to case, since
// two members may share a name in different folders and a folder on Windows or a Mac does not
// tell "A" from "a".
#include <string>
#include <vector>

namespace hlyd {

// The site's own page, which no member page may take.
inline constexpr const char* kSiteIndexPage = "index.html";

// One page name for each file, in their order.
std::vector<std::string> sitePageNames(const std::vector<std::string>& files);

}  // namespace hlyd
