#include "files/file_table.h"

#include <memory>

namespace hlyd {

namespace {
std::unique_ptr<FileTableModule> module = std::make_unique<FileTableModule>();
}

FileTableModule& fileTable() { return *module; }
void resetFileTable() { module = std::make_unique<FileTableModule>(); }

}  // namespace hlyd
