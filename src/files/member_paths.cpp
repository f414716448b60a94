#include "files/member_paths.h"

#include <filesystem>
#include <vector>

#include "analysis/keywords.h"

namespace fs = std::filesystem;

namespace hlyd {

namespace {

std::vector<std::string> components(const std::string& path) {
    std::vector<std::string> parts(1);
    for (char c : path) {
        if (c == '/' || c == '\\') parts.emplace_back();
        else parts.back() += c;
    }
    return parts;
}

// The entry of `dir` whose name equals `name` but for letter case, or empty.
std::string caseInsensitiveEntry(const fs::path& dir, const std::string& name) {
    std::error_code ec;
    std::string wanted = upperCase(name);
    for (const auto& entry : fs::directory_iterator(dir, ec)) {
        std::string candidate = entry.path().filename().string();
        if (upperCase(candidate) == wanted) return candidate;
    }
    return {};
}

// Walks the parts from `base`, mending the case of each that is not there as written.
bool findFrom(const fs::path& base, const std::vector<std::string>& parts, std::size_t first, fs::path& found) {
    fs::path at = base;
    std::error_code ec;
    for (std::size_t i = first; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        if (part.empty() || part == ".") continue;
        if (part == ".." || fs::exists(at / part, ec)) {
            at /= part;
            continue;
        }
        std::string mended = caseInsensitiveEntry(at, part);
        if (mended.empty()) return false;
        at /= mended;
    }
    found = at.lexically_normal();
    return fs::exists(found, ec);
}

}  // namespace

std::string resolveMemberPath(const std::string& projectDirectory, const std::string& wholeFile) {
    std::string name = wholeFile;
    bool hasDrive = name.size() >= 2 && name[1] == ':';
    if (hasDrive) name = name.substr(2);
    std::vector<std::string> parts = components(name);
    bool absolute = !name.empty() && (name[0] == '/' || name[0] == '\\');
    fs::path found;
    if (absolute && findFrom("/", parts, 0, found)) return found.string();
    if (!absolute && findFrom(fs::path(), parts, 0, found)) return found.string();
    if (hasDrive) {
        // A drive of another machine: the member is looked for below the project's directory,
        // dropping leading directories until a match is found.
        fs::path projectDir = projectDirectory.empty() ? fs::path(".") : fs::path(projectDirectory);
        for (std::size_t first = 1; first < parts.size(); ++first)
            if (findFrom(projectDir, parts, first, found)) return found.string();
    }
    std::string native = hasDrive ? wholeFile : name;
    for (char& c : native)
        if (c == '\\') c = '/';
    return native;
}

}  // namespace hlyd
