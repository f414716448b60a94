#pragma once
// The keys of the settings file, bound to the records in memory: what each save routine writes
// and what a tool shows, from one list.
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "settings/settings_store.h"

namespace hlyd {

// The save routine(s) a key belongs to.
enum SaveGroup : unsigned {
    kSaveDisplay = 1u << 0,
    kSavePrint = 1u << 1,
    kSavePrintOptions = 1u << 2,
    kSaveDebug = 1u << 3,
    kSaveWindow = 1u << 4,
    kSavePrinterState = 1u << 5,
    kSaveElement = 1u << 6,
    kSaveFullOnly = 1u << 7,  // only the full save writes it
    kSaveNever = 1u << 8,     // read, or kept in memory, but written by no routine
    kSaveFolders = 1u << 9,   // the folders the file dialogs start in
};

struct SettingKey {
    std::string section;
    std::string key;
    unsigned groups = 0;
    Destination destination = kDisplay;  // for element keys: which slot
    int element = 0;                     // for element keys: which element
    std::function<void(cINIHandler&)> write;
    std::function<SettingShown()> show;
};

// Every key, in the order of the file's sections, bound to the records in force now.
std::vector<SettingKey> settingKeys();

// Writes every key of the groups (any of the bits) in one replacement of the file.
// Element keys are written for one element of one destination when `only` names it, else all.
void writeSettingGroups(unsigned groups, std::optional<Destination> only = std::nullopt, int element = 0);

// "No No No No 10": bold, italic, underline, strikethrough and size of an element's font.
std::string fontAttrText(Destination displayOrPrint, int element);

}  // namespace hlyd
