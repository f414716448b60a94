#include "files/member_paths.h"

#include <unordered_map>
#include <vector>

#include "platform/char_case.h"
#include "platform/os.h"

namespace hlyd {

namespace {

// Upper-cased name -> name as the directory holds it, for each directory read.
using Listing = std::unordered_map<std::string, std::string>;

struct ListingCache {
    int scopes = 0;
    std::unordered_map<std::string, Listing> byDirectory;
};
ListingCache cache;

// A directory is read once while a scope is open; a project of many members in one folder
// then costs one listing, however many of them have to be looked for.
const Listing& listingOf(const std::string& directory) {
    auto known = cache.byDirectory.find(directory);
    if (known != cache.byDirectory.end()) return known->second;
    std::vector<std::string> names;
    os::listDirectory(directory, names);
    Listing& listing = cache.byDirectory[directory];
    for (std::string& name : names) listing.emplace(upperCase(name), std::move(name));
    return listing;
}

std::vector<std::string> components(const std::string& path) {
    std::vector<std::string> parts(1);
    for (char c : path) {
        if (c == '/' || c == '\\') parts.emplace_back();
        else parts.back() += c;
    }
    return parts;
}

std::string joined(const std::string& directory, const std::string& name) {
    if (directory.empty()) return name;
    return directory.back() == '/' ? directory + name : directory + "/" + name;
}

// "a/./b/../c" as "a/c": the name as people expect to read it.
std::string folded(const std::string& path) {
    bool absolute = !path.empty() && path[0] == '/';
    std::vector<std::string> kept;
    for (const std::string& part : components(path)) {
        if (part.empty() || part == ".") continue;
        if (part == ".." && !kept.empty() && kept.back() != "..") kept.pop_back();
        else if (part != ".." || !absolute) kept.push_back(part);
    }
    std::string result = absolute ? "/" : "";
    for (std::size_t i = 0; i < kept.size(); ++i) result += (i ? "/" : "") + kept[i];
    return result.empty() ? "." : result;
}

// Walks the parts from `base`, mending the case of each that is not there as written. A
// relative walk starts in ".", the directory that is listed to mend the first part.
bool findFrom(const std::string& base, const std::vector<std::string>& parts, std::size_t first, std::string& found) {
    std::string at = base;
    for (std::size_t i = first; i < parts.size(); ++i) {
        const std::string& part = parts[i];
        if (part.empty() || part == ".") continue;
        std::string next = joined(at, part);
        if (part == ".." || os::fileInfo(next).exists()) {
            at = next;
            continue;
        }
        const Listing& listing = listingOf(at.empty() ? "." : at);
        auto mended = listing.find(upperCase(part));
        if (mended == listing.end()) return false;
        at = joined(at, mended->second);
    }
    found = folded(at);
    return os::fileInfo(found).exists();
}

std::string resolve(const std::string& projectDirectory, const std::string& wholeFile) {
    std::string name = wholeFile;
    bool hasDrive = name.size() >= 2 && name[1] == ':';
    if (hasDrive) name = name.substr(2);
    std::vector<std::string> parts = components(name);
    bool absolute = !name.empty() && (name[0] == '/' || name[0] == '\\');
    std::string found;
    if (findFrom(absolute ? "/" : "", parts, 0, found)) return found;
    if (hasDrive) {
        // A drive of another machine: the member is looked for below the project's directory,
        // dropping leading directories until a match is found.
        std::string projectDir = projectDirectory.empty() ? "." : projectDirectory;
        for (std::size_t first = 1; first < parts.size(); ++first)
            if (findFrom(projectDir, parts, first, found)) return found;
    }
    std::string native = hasDrive ? wholeFile : name;
    for (char& c : native)
        if (c == '\\') c = '/';
    return native;
}

}  // namespace

DirectoryListingScope::DirectoryListingScope() { ++cache.scopes; }

DirectoryListingScope::~DirectoryListingScope() {
    if (--cache.scopes == 0) cache.byDirectory.clear();
}

std::string resolveMemberPath(const std::string& projectDirectory, const std::string& wholeFile) {
    // Where names ignore letter case and take "\", a name found as written is used as written.
    if (os::windowsFileNames() && os::fileInfo(wholeFile).exists()) return wholeFile;
    DirectoryListingScope scope;
    return resolve(projectDirectory, wholeFile);
}

}  // namespace hlyd
