#pragma once
// The profile service on a plain file: sections in brackets, key=value lines, case-insensitive
// lookup. A write keeps every other line as it stands and replaces the file only when the new
// one is complete, so that a crash in the middle of a save loses nothing.
#include <optional>
#include <string>

namespace hlyd {

// The value of the key, or `defaultValue` when the file, section or key is missing. Values are
// returned as stored, blanks around them and one pair of enclosing quotes removed.
std::string getProfileString(const std::string& file, const std::string& section, const std::string& key,
                             const std::string& defaultValue);

// Sets the key; with no value the key is deleted, with no key the whole section. Returns false
// when the file could not be written (the old file then stands unchanged).
bool writeProfileString(const std::string& file, const std::string& section, const std::optional<std::string>& key,
                        const std::optional<std::string>& value);

// Writes to the file between these two calls are collected and written once, at the end; a
// save of many keys then replaces the file one time. The begin returns false when the file
// cannot be read (no batch is open then, and each write fails by itself); the end returns false
// when the write failed.
bool beginProfileBatch(const std::string& file);
bool endProfileBatch();

// Forgets what was read, so that the next read goes to the disk again.
void clearProfileCache();

}  // namespace hlyd
