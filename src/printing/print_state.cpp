#include "printing/print_state.h"

namespace hlyd {

namespace {
PrintState state;
}  // namespace

PrintState& printState() { return state; }
void resetPrintState() { state = PrintState{}; }

}  // namespace hlyd
