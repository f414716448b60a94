// Program parts loaded at run time, on a POSIX system.
#include <dlfcn.h>

#include "platform/os.h"

namespace hlyd::os {

void* loadProgramPart(const std::string& path, const char* symbol, std::string& error) {
    // Everything is bound at once: a missing library of the part is told here, not halfway through a run.
    void* library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        const char* why = ::dlerror();
        error = why ? why : "cannot be loaded";
        return nullptr;
    }
    void* entry = ::dlsym(library, symbol);
    if (!entry) {
        const char* why = ::dlerror();
        error = why ? why : std::string(symbol) + " is missing";
    }
    return entry;
}

}  // namespace hlyd::os
