#include "platform/path_parts.h"

namespace hlyd {

NameAndFolder nameAndFolder(const std::string& path) {
    std::size_t cut = path.find_last_of("\\/");
    if (cut == std::string::npos) return {path, {}};
    // The root keeps its separator: "/" or "C:\" says more than nothing.
    std::size_t folderEnd = cut == 0 || (cut == 2 && path[1] == ':') ? cut + 1 : cut;
    return {path.substr(cut + 1), path.substr(0, folderEnd)};
}

}  // namespace hlyd
