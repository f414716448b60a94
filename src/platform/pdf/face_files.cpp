#include "platform/pdf/face_files.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <sstream>
#include <vector>

#include "platform/os.h"

namespace fs = std::filesystem;

namespace hlyd {

namespace {

constexpr const char* kHeader = "halyard face files 1";

struct FaceFile {
    std::string path;
    std::uintmax_t size = 0;
    std::int64_t modified = 0;
};

struct Remembered {
    bool active = false, changed = false;
    std::string file;
    std::map<std::string, std::int64_t> sources;  // configuration file or font directory: its time
    std::map<std::string, std::pair<std::string, std::string>> families;
    std::map<std::string, long long> numbers;
    std::map<std::pair<std::string, int>, FaceFile> faces;
    std::map<std::string, std::string> environment;  // the font configuration's variables then set
};

// The variables that make the font configuration read other files than it names: a face
// remembered under other ones may not be the face the configuration would give now.
std::map<std::string, std::string> fontEnvironment() {
    std::map<std::string, std::string> set;
    for (const char* name : {"FONTCONFIG_FILE", "FONTCONFIG_PATH", "FONTCONFIG_SYSROOT"})
        if (const char* value = std::getenv(name)) set.emplace(name, value);
    return set;
}

Remembered& remembered() {
    static Remembered state;
    return state;
}

std::int64_t modifiedTime(const std::string& path) {
    std::error_code error;
    auto time = fs::last_write_time(path, error);
    return error ? -1 : static_cast<std::int64_t>(time.time_since_epoch().count());
}

std::optional<FaceFile> faceFileNow(const std::string& path) {
    std::error_code error;
    std::uintmax_t size = fs::file_size(path, error);
    if (error) return std::nullopt;
    return FaceFile{path, size, modifiedTime(path)};
}

std::vector<std::string> fieldsOf(const std::string& line) {
    std::vector<std::string> fields;
    std::istringstream in(line);
    for (std::string field; std::getline(in, field, '\t');) fields.push_back(field);
    return fields;
}

// One line; false when it is not one this version writes.
bool readLine(Remembered& r, const std::vector<std::string>& f) {
    try {
        if (f.size() == 3 && f[0] == "source") return r.sources.emplace(f[2], std::stoll(f[1])).second;
        if (f.size() == 3 && f[0] == "number") return r.numbers.emplace(f[1], std::stoll(f[2])).second;
        if (f.size() == 3 && f[0] == "environment") return r.environment.emplace(f[1], f[2]).second;
        if (f.size() == 4 && f[0] == "family") return r.families.emplace(f[1], std::pair{f[2], f[3]}).second;
        if (f.size() == 6 && f[0] == "face") {
            FaceFile file{f[5], std::stoull(f[3]), std::stoll(f[4])};
            return r.faces.emplace(std::pair{f[1], std::stoi(f[2])}, file).second;
        }
    } catch (const std::exception&) {}
    return false;
}

// Every source as it was, every face file as it was: else nothing of it is trusted.
bool stillHolds(const Remembered& r) {
    if (r.sources.empty() || r.environment != fontEnvironment()) return false;
    for (const auto& [path, time] : r.sources)
        if (modifiedTime(path) != time) return false;
    for (const auto& [key, file] : r.faces) {
        std::optional<FaceFile> now = faceFileNow(file.path);
        if (!now || now->size != file.size || now->modified != file.modified) return false;
    }
    return true;
}

bool readFile(Remembered& r) {
    std::string text;
    if (os::readWholeFile(r.file, text) != 0) return false;  // a directory or device among them
    std::istringstream in(text);
    std::string line;
    if (!std::getline(in, line) || line != kHeader) return false;
    while (std::getline(in, line))
        if (!readLine(r, fieldsOf(line))) return false;
    return !in.bad();
}

bool plainField(const std::string& text) { return text.find_first_of("\t\n\r") == std::string::npos; }

}  // namespace

bool loadFaceFiles(const std::string& file) {
    Remembered& r = remembered();
    r = Remembered{};
    if (os::isSymlink(file)) return false;  // someone else's file: neither trusted nor overwritten
    r.active = true;
    r.file = file;
    if (readFile(r) && stillHolds(r) && !r.faces.empty()) return true;
    r = Remembered{true, true, file, {}, {}, {}, {}, {}};
    return false;
}

void saveFaceFiles(const std::vector<std::string>& sources) {
    Remembered& r = remembered();
    if (!r.active || !r.changed) return;
    r.sources.clear();
    for (const std::string& source : sources) r.sources[source] = modifiedTime(source);
    std::ostringstream out;
    out << kHeader << '\n';
    for (const auto& [path, time] : r.sources)
        if (plainField(path)) out << "source\t" << time << '\t' << path << '\n';
    r.environment = fontEnvironment();
    for (const auto& [name, value] : r.environment)
        if (plainField(value)) out << "environment\t" << name << '\t' << value << '\n';
    for (const auto& [name, family] : r.families)
        out << "family\t" << name << '\t' << family.first << '\t' << family.second << '\n';
    for (const auto& [name, value] : r.numbers) out << "number\t" << name << '\t' << value << '\n';
    for (const auto& [key, file] : r.faces)
        out << "face\t" << key.first << '\t' << key.second << '\t' << file.size << '\t' << file.modified << '\t'
            << file.path << '\n';
    // Whole or not at all, as the settings are written; a failure leaves the old file or none.
    if (!os::isSymlink(r.file)) os::replaceFile(r.file, out.str());
    r.changed = false;
}

bool rememberingFaceFiles() { return remembered().active; }

void forgetFaceFiles() { remembered() = Remembered{}; }

std::optional<std::pair<std::string, std::string>> rememberedFamily(const std::string& requested) {
    const Remembered& r = remembered();
    auto found = r.families.find(requested);
    if (found == r.families.end()) return std::nullopt;
    return found->second;
}

void rememberFamily(const std::string& requested, const std::string& family, const std::string& readBack) {
    Remembered& r = remembered();
    if (!r.active || !plainField(requested) || !plainField(family) || !plainField(readBack)) return;
    r.changed |= r.families.insert_or_assign(requested, std::pair{family, readBack}).second;
}

std::optional<long long> rememberedNumber(const std::string& name) {
    const Remembered& r = remembered();
    auto found = r.numbers.find(name);
    if (found == r.numbers.end()) return std::nullopt;
    return found->second;
}

void rememberNumber(const std::string& name, long long value) {
    Remembered& r = remembered();
    if (!r.active || !plainField(name)) return;
    r.changed |= r.numbers.insert_or_assign(name, value).second;
}

std::string rememberedFaceFile(const std::string& family, int style) {
    const Remembered& r = remembered();
    auto found = r.faces.find({family, style});
    return found == r.faces.end() ? std::string() : found->second.path;
}

void rememberFaceFile(const std::string& family, int style, const std::string& path) {
    Remembered& r = remembered();
    std::optional<FaceFile> now = faceFileNow(path);
    if (!r.active || !now || !plainField(family) || !plainField(now->path)) return;
    r.faces[{family, style}] = *now;
    r.changed = true;
}

}  // namespace hlyd
