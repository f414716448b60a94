#pragma once
// Every module's state as at the start of a run, in one call: the test suites of one process
// then cannot see what an earlier test left behind, and a module added later is reset in one place.
namespace hlyd {

// The ports (Ui, Clock, surfaces) and the hooks of a windowed run are left as they are: they are
// put in by whoever runs the program, not state of the modules.
void resetModuleState();

}  // namespace hlyd
