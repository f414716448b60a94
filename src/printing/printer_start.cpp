#include "printing/printer_start.h"

#include <cstdint>
#include <memory>
#include <utility>

#include "base/app_info.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "platform/printer.h"
#include "printing/job_properties.h"
#include "printing/print_state.h"
#include "printing/printer_fonts.h"
#include "printing/usable_area.h"
#include "settings/page_settings.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

constexpr int kPrinterUnavailable = 484;
constexpr const char* kPrintingDisabled = "Halyard's Printing functions are disabled.";
constexpr const char* kChooseValidPrinter = "In order to print choose a valid Printer with File/Print Setup.";

void tell(const std::string& text, MsgIcon icon = MsgIcon::None, const std::string& title = theAppInfo().Title) {
    showMessage(text, title, MsgButtons::OK, icon);
}

// A printer whose fonts cannot be listed has none to print with.
int fontCount(Printer& printer) {
    try {
        return static_cast<int>(printer.fontCount());
    } catch (const HlydError&) {
        return 0;
    }
}

void logFontCount(int count) { theLog().LogData("PrinterFonts=" + std::to_string(count)); }

std::unique_ptr<Printer> openNamed(const std::string& name) {
    PrinterSystem* system = printerSystem();
    if (!system) return nullptr;
    for (const std::string& candidate : system->printerNames())
        if (candidate == name) return system->open(candidate);
    return nullptr;
}

// The printer of the settings becomes current, else the system's default; only the first counts
// as present, since the settings' page and fonts belong to it. False when there is no printer.
bool openSettingsPrinter() {
    PrintState& state = printState();
    HlydSettings& s = hlydSettings();
    std::unique_ptr<Printer> printer;
    if (!s.CurrentPrinter.empty()) printer = openNamed(s.CurrentPrinter);
    state.PrinterPresent = printer != nullptr;
    if (!printer) {
        std::string name = GetDefaultPrinter();
        if (name.empty()) return false;
        printer = printerSystem()->open(name);
        if (!printer) raiseRuntime(kPrinterUnavailable, "InitPrinter");
    }
    state.PrinterName = printer->deviceName();
    if (state.PrinterName != s.CurrentPrinter) {
        s.CurrentPrinter = state.PrinterName;
        state.PrinterPresent = false;
    }
    installOpenedPrinter(std::move(printer));
    return true;
}

// How many fonts the printer in force offers to print with; tells the user why it is none.
int printableFontCount(const std::string& wantedPrinter) {
    PrintState& state = printState();
    if (state.PrinterPresent) {
        int count = fontCount(*currentPrinter());
        if (count == 0)
            tell("There are no fonts defined for the printer (" + state.PrinterName + ").\n" +
                         "Printing and related functions disabled until a Printer is selected.",
                 MsgIcon::Warning);
        return count;
    }
    // Told once: the flag keeps a second start of the printer quiet.
    if (!state.NoDefaultPrinter) {
        const std::string& name = wantedPrinter.empty() ? state.PrinterName : wantedPrinter;
        tell("The printer " + name + " is not a valid printer!\n\n" + kPrintingDisabled + "\n" + kChooseValidPrinter,
             MsgIcon::None, "Invalid printer");
        state.NoDefaultPrinter = true;
    }
    return 0;
}

// The area that the settings' margins and columns leave on the printer in force.
void setUsableAreaOfSettings() {
    PrintState& state = printState();
    state.Columns = pageSettings().Columns;
    HlydPASetUsableArea(state.UsableArea, state.DefaultArea, pageSettings().Margins, state.Columns);
}

// The printer in force at start-up: its own area, the fonts measured, the job, the usable area.
void setUpStartPrinter() {
    PrintState& state = printState();
    HlydPASetDefaultUsableArea(state.DefaultArea);
    HlydPAValidateFonts(false);
    if (state.PrintStatus == kPrintMarginsOutside) state.PrinterValid = false;
    SetPrinterProp();
    setUsableAreaOfSettings();
}

// The job's properties go by the same names in the settings and in the dialog.
template <class From, class To>
void copyJobProperties(const From& from, To& to) {
    to.Orientation = from.Orientation;
    to.Copies = from.Copies;
    to.Duplex = from.Duplex;
    to.PaperSize = from.PaperSize;
    to.PrintQuality = from.PrintQuality;
}

// The system's printers are listed only for a dialog that shows them: asking the print service
// is the slowest step of a setup, and a printer chosen on the command line needs no list.
PrinterDialogRequest dialogRequest(bool listPrinters) {
    const HlydSettings& s = hlydSettings();
    PrinterDialogRequest request;
    if (PrinterSystem* system = printerSystem(); system && listPrinters) request.printers = system->printerNames();
    request.printer = currentPrinter() ? currentPrinter()->deviceName() : s.CurrentPrinter;
    copyJobProperties(s, request);
    return request;
}

void tellNoPrinter(const std::string& name) {
    tell(name.empty() ? std::string("No default Printer defined.")
                      : name + " is the default Printer.\nNo Printer defined.");
}

// The dialog's choice: another printer replaces the one in force, and its job properties go into
// the settings. False when the chosen printer cannot be had.
bool takeDialogChoice(const PrinterDialogRequest& request) {
    Printer* current = currentPrinter();
    if (!current || request.printer != current->deviceName()) {
        std::unique_ptr<Printer> chosen = openNamed(request.printer);
        if (!chosen) return false;
        installOpenedPrinter(std::move(chosen));
    }
    copyJobProperties(request, hlydSettings());
    return true;
}

void reportSetupError(int number) {
    tell("The follow error occurred during Printer-setup:\n" + errorDescription(number));
}

// A driver that refuses the orientation keeps its own, and the settings follow it.
void assignSetupJobProperties(Printer& printer) {
    HlydSettings& s = hlydSettings();
    int refused = printer.setJobProperty(JobProperty::Orientation, s.Orientation);
    if (refused == 380 || refused == 483)
        s.Orientation = static_cast<std::int16_t>(printer.jobProperty(JobProperty::Orientation));
    else if (refused != 0) reportSetupError(refused);
    const std::pair<JobProperty, std::int16_t> rest[] = {{JobProperty::Copies, s.Copies},
                                                         {JobProperty::Duplex, s.Duplex},
                                                         {JobProperty::PrintQuality, s.PrintQuality},
                                                         {JobProperty::PaperSize, s.PaperSize}};
    for (const auto& [which, value] : rest)
        if (int error = printer.setJobProperty(which, value)) reportSetupError(error);
}

}  // namespace

std::string GetDefaultPrinter() {
    PrinterSystem* system = printerSystem();
    std::string name = system ? system->defaultPrinterName() : std::string();
    if (!name.empty()) return name;
    tell("No default Printer specified.\nUse Windows Print Manager to set the default Printer.\n"
         "Printing and related functions disabled.\nIn order to Print you will have to \n"
         "1) use Windows Print Manager to select the \ndefault Printer\n2) select File / Print Setup",
         MsgIcon::Warning);
    PrintState& state = printState();
    state.NoDefaultPrinter = true;
    state.PrinterName.clear();
    return {};
}

void InitPrinter() {
    TraceScope trace(theDebug().TraceApplication, "InitPrinter");
    PrintState& state = printState();
    int step = 1;
    try {
        std::string wanted = hlydSettings().CurrentPrinter;
        bool opened = openSettingsPrinter();
        step = 2;
        int count = opened ? printableFontCount(wanted) : 0;
        state.PrinterValid = count > 0;
        logFontCount(count);
        step = 5;
        if (count > 0) setUpStartPrinter();
    } catch (const HlydError& e) {
        state.PrinterValid = false;
        tell("Error initializing printer " + state.PrinterName + "\n\nError: " + std::to_string(e.Number) + " " +
                     e.Description + " at line " + std::to_string(step) + "\n" + kPrintingDisabled + "\n" +
                     kChooseValidPrinter,
             MsgIcon::None, "Printer Initialization");
    }
}

void HlydPAProcessSetupRequest(bool showDialog) {
    TraceScope trace(theDebug().TraceApplication, "HlydPAProcessSetupRequest");
    PrintState& state = printState();
    if (Printer* printer = currentPrinter()) printer->endDoc();
    PrinterDialogRequest request = dialogRequest(showDialog);
    if (showDialog) {
        if (!theUi().printerDialog(request)) return;
        if (!takeDialogChoice(request)) {
            state.PrinterPresent = state.PrinterValid = false;
            tellNoPrinter(request.printer);
            return;
        }
    }
    Printer* printer = currentPrinter();
    if (!printer) {
        state.PrinterPresent = state.PrinterValid = false;
        tellNoPrinter(state.PrinterName);
        return;
    }
    state.PrinterName = hlydSettings().CurrentPrinter = printer->deviceName();
    int count = fontCount(*printer);
    logFontCount(count);
    // A new setup is a new chance for printing.
    state.PrinterPresent = state.PrinterValid = count > 0;
    assignSetupJobProperties(*printer);
    if (!state.PrinterPresent) return;
    HlydPASetDefaultUsableArea(state.DefaultArea);
    HlydPAValidateFonts(false);
    setUsableAreaOfSettings();
    if (state.PrintStatus != kPrintMarginsOutside) return;
    tell("Current Printer-margins are not within the bounds of the selected Printer.\nThey are being ignored.",
         MsgIcon::Warning);
    HlydPAUseDefaultArea(state.UsableArea, state.DefaultArea, state.Columns);
}

}  // namespace hlyd
