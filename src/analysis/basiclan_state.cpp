#include "analysis/basiclan_state.h"

#include <memory>

namespace hlyd {

namespace {
std::unique_ptr<BasiclanModule> module = std::make_unique<BasiclanModule>();
// The tables go with the process instead of being freed chunk by chunk on the way out: a large
// module's are tens of megabytes, and the system takes them back whole. The pointer stays, so a
// leak check at exit sees them reachable.
SourceTables* tables = new SourceTables;
}  // namespace

BasiclanModule& basiclan() { return *module; }
void resetBasiclan() { module = std::make_unique<BasiclanModule>(); }

SourceTables& theSourceTables() { return *tables; }
void resetSourceTables() {
    delete tables;
    tables = new SourceTables;
}

}  // namespace hlyd
