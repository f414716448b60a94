#pragma once
// Every setting of the program: the records in memory, their load at start-up in a fixed order
// with defaults and sanity rules, and the save routines, each writing exactly its own keys.
#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "settings/attributes.h"
#include "settings/ini_handler.h"

namespace hlyd {

constexpr const char* kSettingsFileName = "HLYD.INI";

struct HlydSettings {
    // General
    bool DebugMenu = false;
    std::int16_t WindowState = 0;
    std::int16_t CDLGFileIndex = 1;
    bool DoNotShowPrintDialog = false;
    bool ShowOpenDialog = true;
    std::string UserName;
    std::string UserCompany;
    std::string Version;
    std::array<std::int32_t, 4> Screen{};  // left, top, width, height in twips
    bool ToolBar = true;
    bool ToolTips = true;
    bool StatusBar = true;
    std::array<std::int32_t, 2> FileList{};  // the list of open files: width, height in twips; 0 0 its own
    std::string DefaultFileLoc;
    std::string LastFileLoc;  // where files were last opened from
    std::string LastHTMLLoc;  // where the last HTML document went
    std::string LastPDFLoc;   // where the last printed PDF file went
    std::string CurrentPrinter;
    bool SaveHYInfo = false;
    std::string SaveHYFile;
    bool LineNumbers = false;
    std::int16_t LineNumberHow = 2;
    std::int32_t LineNumberStart = 1;
    std::int32_t LineNumberIncrement = 1;
    bool PageNumberAsk = false;
    std::int16_t PageNumberHow = 1;
    std::string HeadingLeft, HeadingCenter, HeadingRight;
    std::string FootingLeft, FootingCenter, FootingRight;
    bool FileDate = true;
    bool FileName = true;
    bool FullFileName = true;
    bool PrintDate = true;
    std::string OptionalHeading;
    bool ProcName = true;
    bool TableOfContents = false;
    bool CrossReference = false;  // the names of the run, their declarations and uses, after the contents
    bool PrintContinuous = false;
    bool ProcContentsPrint = false;
    std::int16_t Orientation = 1;
    std::int16_t Duplex = 1;
    std::int16_t Copies = 1;
    std::int16_t PaperSize = 1;
    std::int16_t PrintQuality = -4;
    // Debug (the switches themselves live in cDebug)
    std::string LogFile;
    bool LoggingIsOn = false;
    // Dialect
    std::string Dialect = "6";
    bool DetectDialect = true;
    // Files: extension lists separated by "|"
    std::string BasicExt, FormExt, ProjectExt, ResourceExt;
    // View and Display
    PerDestination<bool> ViewCode{true, true};
    PerDestination<bool> ViewFormDef{true, true};
    bool ProcContentsDisplay = false;
    // MRU, positions 1 to 7
    std::array<std::string, 8> MRU;
    // Special
    std::string VBLevel;
    // Per-run state that the load decides
    bool FirstRun = false;
    bool MetricUnits = false;
    bool SettingsWritable = true;
    bool SettingsLossTold = false;  // the user heard that settings could not be kept
};

HlydSettings& hlydSettings();
cINIHandler& iniHandler();
void resetSettings();  // tests: the records, the element table and the page settings at their defaults

// "<printer>.Print": the section of the printer in use.
std::string printerSection();

// The screen's size in twips, for the default window position; the window layer may tell it.
void setScreenSizeTwips(std::int32_t width, std::int32_t height);

void sbInitINI();
void sbGetINIUser();
void sbINIGetInfo(bool firstRun);
void sbDisplayINISave();
void sbPrintINISave();
void sbPrintOptionsINISave();
void saveElementAttributes(Destination displayOrPrint, int element);
void saveDebugSettings();
void saveWindowState();
void savePrinterState();
void saveAllSettings();  // the full save, Version last

// Runs the writes as one replacement of the settings file. When the file could not be written
// the user is told, once in a run, that the settings will not be kept; false then.
bool writeSettingsBatch(const std::function<void()>& writes);

// The load of start-up: user, first-run test, all keys, the log, and the full save that a first
// run or another version's file needs. Tells the user once when the settings cannot be saved.
void loadSettingsAtStartup();

// One key of the file as the records in memory hold it, for tools that show the settings.
struct SettingShown {
    std::string section;
    std::string key;
    enum Kind { Bool, Number, Text } kind;
    bool boolValue = false;
    double numberValue = 0;
    std::string textValue;
};
std::vector<SettingShown> settingsAsLoaded();

}  // namespace hlyd
