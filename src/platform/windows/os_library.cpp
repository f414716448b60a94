// Program parts loaded at run time, on Windows.
#include "platform/os.h"
#include "platform/windows/win_support.h"

namespace hlyd::os {

void* loadProgramPart(const std::string& path, const char* symbol, std::string& error) {
    HMODULE library = LoadLibraryA(path.c_str());
    if (!library) {
        error = "cannot be loaded (error " + std::to_string(GetLastError()) + ")";
        return nullptr;
    }
    void* entry = reinterpret_cast<void*>(GetProcAddress(library, symbol));
    if (!entry) error = std::string(symbol) + " is missing";
    return entry;
}

}  // namespace hlyd::os
