#include "settings/settings_keys.h"

#include "base/c_debug.h"
#include "settings/attributes.h"
#include "settings/page_settings.h"
#include "settings/profile_file.h"
#include "settings/window_place.h"

namespace hlyd {

namespace {

std::string yesNo(bool b) { return b ? "Yes" : "No"; }

SettingShown shownBool(const std::string& section, const std::string& key, bool value) {
    return SettingShown{section, key, SettingShown::Bool, value, 0, {}};
}
SettingShown shownNumber(const std::string& section, const std::string& key, double value) {
    return SettingShown{section, key, SettingShown::Number, false, value, {}};
}
SettingShown shownText(const std::string& section, const std::string& key, const std::string& value) {
    return SettingShown{section, key, SettingShown::Text, false, 0, value};
}

class KeyList {
public:
    explicit KeyList(std::vector<SettingKey>& keys) : keys_(keys) {}

    void boolean(const std::string& section, const std::string& key, bool& ref, unsigned groups) {
        add(
                section, key, groups, [&ref, key](cINIHandler& ini) { ini.WriteBool(key, ref); },
                [&ref, section, key] { return shownBool(section, key, ref); });
    }
    template <class Number>
    void number(const std::string& section, const std::string& key, Number& ref, unsigned groups) {
        add(
                section, key, groups, [&ref, key](cINIHandler& ini) { ini.WriteNumber(key, static_cast<double>(ref)); },
                [&ref, section, key] { return shownNumber(section, key, static_cast<double>(ref)); });
    }
    void text(const std::string& section, const std::string& key, std::string& ref, unsigned groups) {
        add(
                section, key, groups, [&ref, key](cINIHandler& ini) { ini.WriteString(key, ref); },
                [&ref, section, key] { return shownText(section, key, ref); });
    }
    // A value whose text form is computed; it is shown as that text.
    void computed(const std::string& section, const std::string& key, unsigned groups,
                  const std::function<std::string()>& textOf) {
        add(
                section, key, groups, [textOf, key](cINIHandler& ini) { ini.WriteString(key, textOf()); },
                [textOf, section, key] { return shownText(section, key, textOf()); });
    }
    void add(const std::string& section, const std::string& key, unsigned groups,
             std::function<void(cINIHandler&)> write, std::function<SettingShown()> show) {
        keys_.push_back(SettingKey{section, key, groups, kDisplay, 0, std::move(write), std::move(show)});
    }
    SettingKey& last() { return keys_.back(); }

private:
    std::vector<SettingKey>& keys_;
};

std::string fourWords(const std::array<std::int32_t, 4>& v) {
    return std::to_string(v[0]) + " " + std::to_string(v[1]) + " " + std::to_string(v[2]) + " " + std::to_string(v[3]);
}

void generalKeys(KeyList& k, HlydSettings& s) {
    const std::string g = "General";
    k.boolean(g, "DebugMenu", s.DebugMenu, kSaveNever);
    // Kept with the window's place: a maximised window comes back maximised.
    k.number(g, "WindowState", s.WindowState, kSaveWindow);
    k.number(g, "CDLGFileIndex", s.CDLGFileIndex, kSaveFullOnly);
    k.boolean(g, "DoNotShowPrintDialog", s.DoNotShowPrintDialog, kSaveDisplay);
    k.boolean(g, "ShowOpenDialog", s.ShowOpenDialog, kSaveDisplay);
    k.text(g, "User Name", s.UserName, kSaveDisplay);
    k.text(g, "User Company", s.UserCompany, kSaveDisplay);
    k.text(g, "Version", s.Version, kSaveNever);  // the full save writes it last, by itself
    k.computed(g, "Screen", kSaveWindow, [&s] { return fourWords(s.Screen); });
    k.boolean(g, "ToolBar", s.ToolBar, kSaveWindow);
    k.boolean(g, "ToolTips", s.ToolTips, kSaveWindow);
    k.boolean(g, "StatusBar", s.StatusBar, kSaveWindow);
    k.computed(g, "FileList", kSaveWindow,
               [&s] { return std::to_string(s.FileList[0]) + " " + std::to_string(s.FileList[1]); });
    k.text(g, "DefaultFileLoc", s.DefaultFileLoc, kSaveNever);
    k.text(g, "LastFileLoc", s.LastFileLoc, kSaveFolders);
    k.text(g, "LastHTMLLoc", s.LastHTMLLoc, kSaveFolders);
    k.text(g, "LastPDFLoc", s.LastPDFLoc, kSaveFolders);
    k.text(g, "CurrentPrinter", s.CurrentPrinter, kSavePrinterState);
    k.boolean(g, "SaveHYInfo", s.SaveHYInfo, kSavePrintOptions);
    k.text(g, "SaveHYFile", s.SaveHYFile, kSavePrintOptions);
    k.boolean(g, "LineNumbers", s.LineNumbers, kSavePrintOptions);
    k.number(g, "LineNumberHow", s.LineNumberHow, kSavePrintOptions);
    k.number(g, "LineNumberStart", s.LineNumberStart, kSavePrintOptions);
    k.number(g, "LineNumberIncrement", s.LineNumberIncrement, kSavePrintOptions);
    k.boolean(g, "PageNumberAsk", s.PageNumberAsk, kSavePrintOptions);
    k.number(g, "PageNumberHow", s.PageNumberHow, kSavePrintOptions);
    k.text(g, "HeadingLeft", s.HeadingLeft, kSavePrintOptions);
    k.text(g, "HeadingCenter", s.HeadingCenter, kSavePrintOptions);
    k.text(g, "HeadingRight", s.HeadingRight, kSavePrintOptions);
    k.text(g, "FootingLeft", s.FootingLeft, kSavePrintOptions);
    k.text(g, "FootingCenter", s.FootingCenter, kSavePrintOptions);
    k.text(g, "FootingRight", s.FootingRight, kSavePrintOptions);
    k.boolean(g, "FileDate", s.FileDate, kSaveNever);
    k.boolean(g, "FileName", s.FileName, kSaveNever);
    k.boolean(g, "FullFileName", s.FullFileName, kSaveNever);
    k.boolean(g, "PrintDate", s.PrintDate, kSaveNever);
    k.text(g, "OptionalHeading", s.OptionalHeading, kSavePrint);
    k.boolean(g, "ProcName", s.ProcName, kSaveNever);
    k.boolean(g, "TableOfContents", s.TableOfContents, kSavePrint);
    k.boolean(g, "CrossReference", s.CrossReference, kSavePrint);
    k.boolean(g, "PrintContinuous", s.PrintContinuous, kSavePrint);
    k.boolean(g, "ProcContents", s.ProcContentsPrint, kSavePrint);
    k.number(g, "Orientation", s.Orientation, kSavePrinterState);
    k.number(g, "Duplex", s.Duplex, kSavePrinterState);
    k.number(g, "Copies", s.Copies, kSavePrinterState);
    k.number(g, "PaperSize", s.PaperSize, kSavePrinterState);
    k.number(g, "PrintQuality", s.PrintQuality, kSavePrinterState);
}

void debugKeys(KeyList& k, HlydSettings& s) {
    const std::string d = "Debug";
    cDebug& dbg = theDebug();
    k.boolean(d, "DontTrapErrors", dbg.DontTrapErrors, kSaveDebug);
    k.boolean(d, "DontFixDataErrors", dbg.DontFixDataErrors, kSaveDebug);
    k.text(d, "LogFile", s.LogFile, kSaveDebug);
    k.boolean(d, "LoggingIsOn", s.LoggingIsOn, kSaveDebug);
    k.boolean(d, "TraceEvents", dbg.TraceEvents, kSaveDebug);
    k.boolean(d, "TraceApplication", dbg.TraceApplication, kSaveDebug);
    k.boolean(d, "TracePackages", dbg.TracePackages, kSaveDebug);
    k.boolean(d, "TraceClasses", dbg.TraceClasses, kSaveDebug);
    k.boolean(d, "TraceMouseMove", dbg.TraceMouseMove, kSaveDebug);
}

// The dialect is read from "Dialect" but saved under "Default", so a saved choice takes no
// effect at the next start.
void dialectAndFileKeys(KeyList& k, HlydSettings& s) {
    k.text("Dialect", "Dialect", s.Dialect, kSaveNever);
    k.text("Dialect", "Default", s.Dialect, kSaveDisplay);
    k.add(
            "Dialect", "Detect", kSaveDisplay,
            [&s](cINIHandler& ini) { ini.WriteString("Detect", s.DetectDialect ? "AUTO" : "MANUAL"); },
            [&s] { return shownBool("Dialect", "Detect", s.DetectDialect); });
    k.text("Files", "BasicExtNew", s.BasicExt, kSaveDisplay);
    k.text("Files", "FormExtNew", s.FormExt, kSaveDisplay);
    k.text("Files", "ProjectExtNew", s.ProjectExt, kSaveDisplay);
}

void formatKeys(KeyList& k, Destination dest) {
    FormatRecord& f = displayAttributes().Format[dest];
    std::string d = std::string(".") + destinationName(dest);
    bool screen = dest == kDisplay;
    unsigned mine = screen ? kSaveDisplay : kSavePrintOptions;
    unsigned printerOnly = screen ? kSaveFullOnly : kSavePrintOptions;
    auto flag = [&](const char* key, std::int16_t& ref, unsigned groups) {
        std::string name = key + d;
        k.add(
                "Format", name, groups, [&ref, name](cINIHandler& ini) { ini.WriteBool(name, ref != 0); },
                [&ref, name] { return shownBool("Format", name, ref != 0); });
    };
    flag("SkipAttributes", f.SkipAttributes, mine | (screen ? 0u : unsigned{kSavePrint}));
    flag("ConnectControls", f.ConnectControls, mine);
    flag("ContinueGenerate", f.ContinueGenerate, mine);
    flag("ContinueHonor", f.ContinueHonor, printerOnly);
    flag("Separator", f.Separator, mine);
    flag("SeparatorBold", f.SeparatorBold, mine);
    k.computed("Format", "ProcSkip" + d, printerOnly, [&f] { return std::string(1, static_cast<char>(f.ProcSkip)); });
    k.number("Format", "IndentAmount" + d, f.IndentAmount, mine);
    k.number("Format", "TabWidth" + d, f.TabWidth, mine);
    flag("Indent", f.Indent, mine);
    k.number("Format", "Orphan" + d, f.Orphan, printerOnly);
}

void viewKeys(KeyList& k, HlydSettings& s) {
    for (Destination dest : kDestinations) {
        unsigned groups = dest == kDisplay ? kSaveDisplay : kSavePrint;
        k.boolean("View", std::string("Code.") + destinationName(dest), s.ViewCode[dest], groups);
        k.boolean("View", std::string("FormDef.") + destinationName(dest), s.ViewFormDef[dest], groups);
    }
}

void elementKeys(KeyList& k, const std::string& section, Destination dest) {
    for (int e = 1; e <= kElementCount; ++e) {
        AttributeRecord& a = displayAttributes().Elements[e].slot[dest];
        const std::string& name = elementName(e);
        k.number(section, "Color.Background." + name, a.BackColor, kSaveElement);
        k.last().destination = dest, k.last().element = e;
        k.number(section, "Color.Foreground." + name, a.ForeColor, kSaveElement);
        k.last().destination = dest, k.last().element = e;
        k.text(section, "FontName." + name, a.FontName, kSaveElement);
        k.last().destination = dest, k.last().element = e;
        k.computed(section, "FontAttr." + name, kSaveElement, [dest, e] { return fontAttrText(dest, e); });
        k.last().destination = dest, k.last().element = e;
    }
}

void printerKeys(KeyList& k) {
    std::string section = printerSection();
    elementKeys(k, section, kPrint);
    PageSettings& p = pageSettings();
    k.number(section, "Columns", p.Columns.Columns, kSavePrintOptions);
    k.boolean(section, "ColumnSeparator", p.Columns.Separator, kSavePrintOptions);
    k.number(section, "ColumnSpacing", p.Columns.Gutter, kSavePrintOptions);
    k.number(section, "ColumnWidth", p.Columns.Width, kSavePrintOptions);
    const MarginRecord& m = p.Margins;
    k.computed(section, "Margins", kSavePrintOptions, [&m] { return fourWords({m.Bottom, m.Left, m.Right, m.Top}); });
}

}  // namespace

std::string fontAttrText(Destination dest, int element) {
    const FontSpec& f = displayAttributes().Elements[element].slot[dest].Font;
    return yesNo(f.Bold) + " " + yesNo(f.Italic) + " " + yesNo(f.Underline) + " " + yesNo(f.Strikethrough) + " " +
           numberText(f.Size);
}

std::vector<SettingKey> settingKeys() {
    std::vector<SettingKey> keys;
    KeyList k(keys);
    HlydSettings& s = hlydSettings();
    generalKeys(k, s);
    debugKeys(k, s);
    dialectAndFileKeys(k, s);
    formatKeys(k, kDisplay);
    formatKeys(k, kPrint);
    viewKeys(k, s);
    k.boolean("Display", "ProcContents", s.ProcContentsDisplay, kSaveNever);
    elementKeys(k, "Display", kDisplay);
    for (int i = 1; i <= 7; ++i) k.text("MRU", "MRU" + std::to_string(i), s.MRU[i], kSaveNever);
    k.text("Special", "VBLevel", s.VBLevel, kSaveNever);
    printerKeys(k);
    return keys;
}

void writeSettingGroups(unsigned groups, std::optional<Destination> only, int element) {
    cINIHandler& ini = iniHandler();
    if (!hlydSettings().SettingsWritable) return;
    if (screensUnknown() && (groups &= ~kSaveWindow) == 0) return;
    writeSettingsBatch([&] {
        for (SettingKey& key : settingKeys()) {
            if (!(key.groups & groups)) continue;
            if (key.groups & kSaveElement && only && (key.destination != *only || key.element != element)) continue;
            ini.setSection(key.section);
            key.write(ini);
        }
    });
}

}  // namespace hlyd
