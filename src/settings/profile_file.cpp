#include "settings/profile_file.h"

#include <unordered_map>
#include <vector>

#include "base/text_format.h"
#include "platform/os.h"
#include "settings/settings_state.h"

namespace hlyd {

namespace {

std::string lowerKey(const std::string& s) { return lowerCaseAscii(trimBlanks(s)); }

// `into` += `s` without its blanks and tabs at either end, lower-cased.
void appendLowerKey(std::string& into, std::string_view s) {
    std::size_t begin = s.find_first_not_of(" \t");
    if (begin == std::string_view::npos) return;
    for (char c : s.substr(begin, s.find_last_not_of(" \t") - begin + 1))
        into += c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// How the keys are indexed: the section and the key, each as lowerKey makes it, a LF between.
// Built in one string: a start-up reads two hundred keys.
std::string indexKey(std::string_view section, std::string_view key) {
    std::string joined;
    joined.reserve(section.size() + key.size() + 1);
    appendLowerKey(joined, section);
    joined += '\n';
    appendLowerKey(joined, key);
    return joined;
}

// One parsed file: its lines as they stand, and where each section and key is.
struct ProfileDocument {
    std::vector<std::string> lines;
    // Each line's own ending as the file has it ("" for a last line without one); the user's lines
    // keep theirs, whatever mix of CR LF, LF and CR they came with, and ours take lineEnd.
    std::vector<std::string> ends;
    std::string lineEnd = "\n";
    // lower-cased section -> line of its header; first occurrence wins, as lookups stop there
    std::unordered_map<std::string, std::size_t> sections;
    // lower-cased "section\nkey" -> line of the key
    std::unordered_map<std::string, std::size_t> keys;
};

bool sectionHeader(const std::string& line, std::string& name) {
    std::string t = trimBlanks(line);
    if (t.size() < 2 || t.front() != '[') return false;
    std::size_t close = t.find(']');
    if (close == std::string::npos) return false;
    name = t.substr(1, close - 1);
    return true;
}

bool keyLine(const std::string& line, std::string& key, std::string& value) {
    std::size_t eq = line.find('=');
    if (eq == std::string::npos) return false;
    std::string t = trimBlanks(line);
    if (t.empty() || t[0] == ';') return false;
    key = trimBlanks(line.substr(0, eq));
    value = trimBlanks(line.substr(eq + 1));
    return !key.empty();
}

void index(ProfileDocument& doc) {
    doc.sections.clear();
    doc.keys.clear();
    std::string section;
    bool inSection = false;
    std::string name, key, value;
    for (std::size_t i = 0; i < doc.lines.size(); ++i) {
        if (sectionHeader(doc.lines[i], name)) {
            section = lowerKey(name);
            inSection = true;
            doc.sections.emplace(section, i);
        } else if (inSection && keyLine(doc.lines[i], key, value)) {
            doc.keys.emplace(indexKey(section, key), i);
        }
    }
}

ProfileDocument parse(const std::string& content) {
    ProfileDocument doc;
    std::size_t crlf = content.find("\r\n");
    if (crlf != std::string::npos && crlf == content.find('\n') - 1) doc.lineEnd = "\r\n";
    std::size_t pos = 0;
    while (pos < content.size()) {
        std::size_t end = content.find_first_of("\r\n", pos);
        if (end == std::string::npos) end = content.size();
        doc.lines.push_back(content.substr(pos, end - pos));
        pos = end;
        if (pos < content.size() && content[pos] == '\r' && pos + 1 < content.size() && content[pos + 1] == '\n') ++pos;
        if (pos < content.size()) ++pos;
        doc.ends.push_back(content.substr(end, pos - end));
    }
    index(doc);
    return doc;
}

}  // namespace

// The file is read again only when it changed on the disk; a load of many keys from a large
// file then costs one parse, and a save of many keys one write when they come in a batch.
struct ProfileCache {
    std::string path;
    os::FileInfo disk{};  // size, time and file number when it was read
    ProfileDocument doc{};
    bool valid = false;
    bool batching = false;
    int batchDepth = 0;  // batches nest: only the outermost end writes
    bool dirty = false;
};
HLYD_PRIVATE_PART(ProfileCache)

namespace {

ProfileCache& cache() { return *settingsState().profileCache; }

bool sameOnDisk(const os::FileInfo& now) {
    const os::FileInfo& then = cache().disk;
    return then.size == now.size && then.fileId == now.fileId && then.device == now.device &&
           then.modifiedSeconds == now.modifiedSeconds && then.modifiedNanoseconds == now.modifiedNanoseconds;
}

void rememberDiskState(const std::string& path) {
    cache().disk = os::fileInfo(path);
    if (!cache().disk.exists()) cache().valid = false;
}

ProfileDocument readDocument(const std::string& path, bool& ok) {
    std::string content;
    ok = os::readWholeFile(path, content) == 0;
    return parse(content);
}

// Another file touched while a batch is open is read afresh each time and never cached, so
// that the batch's document is not lost.
ProfileDocument* loadOutsideBatch(const std::string& path) {
    static ProfileDocument scratch;
    os::FileInfo info = os::fileInfo(path);
    bool ok = true;
    if (!info.exists()) scratch = ProfileDocument{};
    else if (!info.regular()) return nullptr;
    else scratch = readDocument(path, ok);
    return ok ? &scratch : nullptr;
}

// The document of the file, parsed; an empty one when the file does not exist. Null when the
// file exists but is no regular file or cannot be read.
ProfileDocument* load(const std::string& path) {
    if (cache().batching) return cache().path == path ? &cache().doc : loadOutsideBatch(path);
    os::FileInfo info = os::fileInfo(path);
    if (!info.exists()) {
        cache() = ProfileCache{};
        cache().path = path;
        cache().valid = true;
        return &cache().doc;
    }
    if (!info.regular()) return nullptr;
    if (cache().valid && cache().path == path && sameOnDisk(info)) return &cache().doc;
    bool ok = true;
    ProfileDocument doc = readDocument(path, ok);
    if (!ok) return nullptr;
    cache() = ProfileCache{};
    cache().path = path;
    cache().doc = std::move(doc);
    cache().disk = info;
    cache().valid = true;
    return &cache().doc;
}

std::string unquote(const std::string& value) {
    if (value.size() >= 2 && value.front() == '"' && value.back() == '"') return value.substr(1, value.size() - 2);
    return value;
}

// The line after the last line of the section that is not blank.
std::size_t endOfSection(const ProfileDocument& doc, std::size_t header) {
    std::size_t last = header;
    std::string name;
    for (std::size_t i = header + 1; i < doc.lines.size() && !sectionHeader(doc.lines[i], name); ++i)
        if (!trimBlanks(doc.lines[i]).empty()) last = i;
    return last + 1;
}

std::size_t nextSection(const ProfileDocument& doc, std::size_t header) {
    std::string name;
    std::size_t i = header + 1;
    while (i < doc.lines.size() && !sectionHeader(doc.lines[i], name)) ++i;
    return i;
}

void insertLine(ProfileDocument& doc, std::size_t at, std::string text) {
    doc.lines.insert(doc.lines.begin() + static_cast<std::ptrdiff_t>(at), std::move(text));
    doc.ends.insert(doc.ends.begin() + static_cast<std::ptrdiff_t>(at), doc.lineEnd);
}

void eraseLines(ProfileDocument& doc, std::size_t from, std::size_t to) {
    doc.lines.erase(doc.lines.begin() + static_cast<std::ptrdiff_t>(from),
                    doc.lines.begin() + static_cast<std::ptrdiff_t>(to));
    doc.ends.erase(doc.ends.begin() + static_cast<std::ptrdiff_t>(from),
                   doc.ends.begin() + static_cast<std::ptrdiff_t>(to));
}

void appendKey(ProfileDocument& doc, const std::string& section, const std::string& key, const std::string& value) {
    doc.keys.emplace(indexKey(section, key), doc.lines.size());
    insertLine(doc, doc.lines.size(), key + "=" + value);
}

// A key the document lacks, at the end of its section (a new section at the end of the file).
void addKey(ProfileDocument& doc, const std::string& section, const std::string& key, const std::string& value) {
    auto header = doc.sections.find(lowerKey(section));
    if (header == doc.sections.end()) {
        if (!doc.lines.empty() && !trimBlanks(doc.lines.back()).empty()) insertLine(doc, doc.lines.size(), "");
        doc.sections.emplace(lowerKey(section), doc.lines.size());
        insertLine(doc, doc.lines.size(), "[" + section + "]");
        return appendKey(doc, section, key, value);
    }
    std::size_t at = endOfSection(doc, header->second);
    if (at == doc.lines.size()) return appendKey(doc, section, key, value);
    insertLine(doc, at, key + "=" + value);
    index(doc);
}

// Applies one write; the index is kept in step without a new parse where lines do not move.
// False when the document stays as it was: a key written with the value it has.
bool applyWrite(ProfileDocument& doc, const std::string& section, const std::optional<std::string>& key,
                const std::optional<std::string>& value) {
    auto header = doc.sections.find(lowerKey(section));
    if (!key) {
        if (header == doc.sections.end()) return false;
        eraseLines(doc, header->second, nextSection(doc, header->second));
        index(doc);
        return true;
    }
    auto existing = doc.keys.find(indexKey(section, *key));
    if (existing != doc.keys.end()) {
        std::string& line = doc.lines[existing->second];
        if (value) {
            std::string written = *key + "=" + *value;
            if (line == written) return false;
            line = std::move(written);
            return true;
        }
        eraseLines(doc, existing->second, existing->second + 1);
        index(doc);
        return true;
    }
    if (!value) return false;
    addKey(doc, section, *key, *value);
    return true;
}

// Whole or not at all, keeping the file's mode and any link to it; a read-only file is refused.
bool replaceFile(const std::string& path, const ProfileDocument& doc) {
    std::string text;
    for (std::size_t i = 0; i < doc.lines.size(); ++i) {
        const std::string& end = doc.ends[i];
        // A last line without an ending gets one only when a line of ours follows it.
        text.append(doc.lines[i]).append(end.empty() && i + 1 < doc.lines.size() ? doc.lineEnd : end);
    }
    return os::replaceFile(path, text) == 0;
}

}  // namespace

std::string getProfileString(const std::string& file, const std::string& section, const std::string& key,
                             const std::string& defaultValue) {
    const ProfileDocument* doc = load(file);
    if (!doc) return defaultValue;
    auto at = doc->keys.find(indexKey(section, key));
    if (at == doc->keys.end()) return defaultValue;
    std::string k, value;
    keyLine(doc->lines[at->second], k, value);
    return unquote(value);
}

bool writeProfileString(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                        const std::optional<std::string>& value) {
    ProfileDocument* doc = load(file);
    if (!doc) return false;
    // A file written with what it holds already is left alone: every run saves its printer and
    // window, and a replacement costs two waits for the disk.
    if (!applyWrite(*doc, section, key, value)) return true;
    if (doc != &cache().doc) return replaceFile(file, *doc);
    if (cache().batching) {
        cache().dirty = true;
        return true;
    }
    if (!replaceFile(file, *doc)) {
        cache().valid = false;  // the write is lost; the next read sees the disk as it stands
        return false;
    }
    rememberDiskState(file);
    return true;
}

bool beginProfileBatch(const std::string& file) {
    if (cache().batching) {
        ++cache().batchDepth;
        return true;
    }
    if (!load(file)) return false;
    cache().batching = true;
    cache().batchDepth = 1;
    return true;
}

bool endProfileBatch() {
    if (!cache().batching || --cache().batchDepth > 0) return true;
    cache().batching = false;
    if (!cache().dirty) return true;
    cache().dirty = false;
    if (!replaceFile(cache().path, cache().doc)) {
        cache().valid = false;
        return false;
    }
    rememberDiskState(cache().path);
    return true;
}

void clearProfileCache() { cache() = ProfileCache{}; }

}  // namespace hlyd
