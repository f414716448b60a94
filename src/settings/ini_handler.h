#pragma once
// Typed access to a settings file of sections and key=value lines: booleans as words read in
// several spellings, numbers read the way Val reads them and clamped on request (a clamp is
// logged), word lists.
#include <optional>
#include <string>
#include <vector>

namespace hlyd {

class cINIHandler {
public:
    cINIHandler();

    std::string Data;  // a slot for the caller; reads and writes ignore it
    std::string Key;   // a slot for the caller

    const std::string& INIFileName() const { return iniFileName_; }
    void setINIFileName(const std::string& name) { iniFileName_ = name; }
    const std::string& Section() const { return section_; }
    void setSection(const std::string& name);  // "[" and "]" become "|"

    bool ReadBool(const std::string& key, bool defaultValue = false,
                  const std::optional<std::string>& section = std::nullopt);
    double ReadNumber(const std::string& key, double defaultValue = 0, std::optional<double> lower = std::nullopt,
                      std::optional<double> upper = std::nullopt, const std::string& section = {},
                      bool useSystem = false);
    std::string ReadString(const std::string& key, const std::string& defaultValue = {},
                           const std::string& section = {}, bool useSystem = false);
    std::vector<std::string> ReadWords(const std::string& key, const std::string& defaultValue = {},
                                       const std::optional<std::string>& section = std::nullopt,
                                       const std::string& delimiter = " ");

    long WriteBool(const std::string& key, bool value, const std::optional<std::string>& section = std::nullopt);
    long WriteNumber(const std::string& key, double value, const std::string& format = {},
                     const std::optional<std::string>& section = std::nullopt);
    long WriteString(const std::string& key, const std::string& value,
                     const std::optional<std::string>& section = std::nullopt);
    long WriteWords(const std::string& key, const std::vector<std::string>& words,
                    const std::optional<std::string>& section = std::nullopt);
    long DeleteKey(const std::string& key, const std::optional<std::string>& section = std::nullopt);
    long DeleteSection(const std::string& section);

    // A number outside the range of its key is replaced, not refused: the log names the key, the
    // current section and the file, and what is used instead, so that a user who asks learns why.
    void logOutOfRange(const std::string& key, const std::string& text, const std::string& used) const;

    // Where the file is: a name without a directory lives in the settings directory.
    std::string resolvedPath() const;

private:
    std::string readRaw(const std::string& key, const std::string& defaultValue, bool useSystem) const;
    long write(const std::optional<std::string>& key, const std::optional<std::string>& value);

    std::string iniFileName_;
    std::string section_ = "DEFAULT";
    // The last path resolvedPath() joined, and what from.
    mutable std::string resolvedPath_, resolvedDirectory_, resolvedName_;
};

// The leading number of a text as Val reads it: blanks skipped, a sign, digits and one point.
double valOf(const std::string& text);

// A number as the default conversion writes it: whole numbers without a point.
std::string numberText(double value);

}  // namespace hlyd
