#pragma once
// What a run is given to work with: someone to ask (the Ui), the clock, the window's views of its
// dialogs, the surfaces drawn on and the printers. Whoever runs the program puts them in; each
// Session holds its own, so that a test's Session has its own and a port installed in one is
// never called from another.
namespace hlyd {

class Ui;
class Clock;
class Views;
class Surface;
class Printer;
class PrinterSystem;

struct Ports {
    // The console's Ui, the system's clock and the views of no window: a run that installs
    // nothing still asks, tells the time and shows nothing. Nothing to draw or print on.
    Ports();

    Ui* ui;        // never null
    Clock* clock;  // never null
    Views* views;  // never null
    Surface* display = nullptr;
    // The printer in force and its page. The printing part opens it and owns it, so a reset of
    // the Session lets go of both before the part goes.
    Printer* printer = nullptr;
    Surface* printerSurface = nullptr;
    PrinterSystem* printers = nullptr;
};

}  // namespace hlyd
