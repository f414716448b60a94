#pragma once
// What a print learnt of the installed fonts, kept for the next: the family each font name stands
// for, and the file of each face. A later print reads those files directly and need not load the
// system's font configuration at all. The file is only ever a shortcut: one that is missing,
// damaged, unreadable, read-only, a link, or out of date (a font or the configuration changed since)
// makes a print look the fonts up as it would without it, never fail or print differently.
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace hlyd {

// Reads `file`; true when all it remembers still holds, so that the run can start without the
// font configuration. From here on the run remembers what it looks up.
bool loadFaceFiles(const std::string& file);
// Writes the file back when the run learnt something, with the font configuration's `sources` as
// they stand now; quietly does nothing when it cannot.
void saveFaceFiles(const std::vector<std::string>& sources);
bool rememberingFaceFiles();
// Forgets everything and stops remembering (for the next load).
void forgetFaceFiles();

// The family a font name resolved to, and the name it reads back as. Names are UTF-8.
std::optional<std::pair<std::string, std::string>> rememberedFamily(const std::string& requested);
void rememberFamily(const std::string& requested, const std::string& family, const std::string& readBack);

// A figure of the installed fonts, such as how many a printer lists.
std::optional<long long> rememberedNumber(const std::string& name);
void rememberNumber(const std::string& name, long long value);

// The file of a family's face in a style (bold 1, italic 2), when it has not changed since.
std::string rememberedFaceFile(const std::string& family, int style);
void rememberFaceFile(const std::string& family, int style, const std::string& path);

}  // namespace hlyd
