#pragma once
// The eight language elements and their attributes, once for the screen and once for the
// printer, and the layout options of each destination.
#include <array>
#include <cstdint>
#include <string>

#include "platform/destination.h"

namespace hlyd {

constexpr int kElementCount = 8;
// A token's element in a byte: a large module has a quarter of a million tokens.
using TokenElement = std::uint8_t;

enum Element : int {
    kElemComments = 1,
    kElemIdentifiers = 2,
    kElemKeyWords = 3,
    kElemLiterals = 4,
    kElemProjectFile = 5,
    kElemProcedures = 6,
    kElemHeadersFooters = 7,
    kElemLineNumbers = 8,
};

// "Comments", "Identifiers", ... for elements 1 to 8.
const std::string& elementName(int element);
// "Display" or "Print".
const char* destinationName(Destination destination);

// The system colour of a window's background; a stored white on the screen turns into it.
constexpr std::uint32_t kSystemWindowBackground = 0x80000005u;
constexpr std::uint32_t kWhite = 16777215u;

struct FontSpec {
    std::string Name;
    double Size = 0;  // points
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    bool Strikethrough = false;
};

struct AttributeRecord {
    std::string FontName;  // the name asked for in the settings
    FontSpec Font;
    std::uint32_t BackColor = 0;
    std::uint32_t ForeColor = 0;
    std::int32_t Height = 0;
    std::int32_t SpaceWidth = 0;
    std::int32_t XWidth = 0;
};

struct ElementRow {
    PerDestination<AttributeRecord> slot;
    std::string Name;
};

struct FormatRecord {
    std::int16_t ConnectControls = 1;
    std::int16_t ContinueGenerate = 1;
    std::int16_t ContinueHonor = 1;
    std::int16_t Indent = 1;
    std::int16_t IndentAmount = 4;
    std::int16_t TabWidth = 4;
    std::int16_t Orphan = 1;
    std::int16_t Separator = 1;
    std::int16_t ProcSkip = 'N';  // "P" new page, "C" new column, "N" neither
    std::int16_t SeparatorBold = 1;
    std::int16_t SkipAttributes = 0;
};

// The element table (rows 1 to 8) and the Format records of each destination in force.
struct DisplayAttributes {
    std::array<ElementRow, kElementCount + 1> Elements;
    PerDestination<FormatRecord> Format;
};

DisplayAttributes& displayAttributes();
DisplayAttributes namedDisplayAttributes();  // defaults, each row with its element's name

}  // namespace hlyd
