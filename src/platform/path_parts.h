#pragma once
// A path as a person scans it: the file's name, then the folder it lies in. Both separators
// count, since project members are named in Windows form.
#include <string>

namespace hlyd {

struct NameAndFolder {
    std::string name;
    std::string folder;  // without its last separator; empty for a bare name
};

NameAndFolder nameAndFolder(const std::string& path);

}  // namespace hlyd
