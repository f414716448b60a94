#include "analysis/basiclan_state.h"

#include <memory>

namespace hlyd {

namespace {
std::unique_ptr<BasiclanModule> module = std::make_unique<BasiclanModule>();
std::unique_ptr<SourceTables> tables = std::make_unique<SourceTables>();
}  // namespace

BasiclanModule& basiclan() { return *module; }
void resetBasiclan() { module = std::make_unique<BasiclanModule>(); }

SourceTables& theSourceTables() { return *tables; }
void resetSourceTables() { tables = std::make_unique<SourceTables>(); }

}  // namespace hlyd
