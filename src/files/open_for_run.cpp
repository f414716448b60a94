#include "files/open_for_run.h"

#include "files/file_table.h"
#include "files/project_listing.h"
#include "platform/char_case.h"
#include "settings/settings_store.h"

namespace hlyd {

bool isProjectName(const std::string& path) {
    std::size_t slash = path.find_last_of("\\/");
    std::size_t dot = path.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return false;
    std::string ext = upperCase(path.substr(dot + 1));
    return ("|" + upperCase(hlydSettings().ProjectExt) + "|").find("|" + ext + "|") != std::string::npos;
}

void openFileForRun(const std::string& path) {
    if (isProjectName(path)) {
        fileTable().projectOpen = true;
        PFParseFile({cFileDesc{path, kFileProject, true, 0, 0}});
    } else {
        oFile().Add({path, kFileSource, false, 0, 0});
    }
}

}  // namespace hlyd
