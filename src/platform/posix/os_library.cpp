// Program parts loaded at run time, on a POSIX system.
#include <dlfcn.h>

#include "platform/os.h"

namespace hlyd::os {

void* loadProgramPart(const std::string& path, const char* symbol, std::string& error) {
    // A missing library of the part is told here all the same; its functions are bound as they are
    // first called, as for a program linked with them, so that a short run binds only what it uses.
    void* library = ::dlopen(path.c_str(), RTLD_LAZY | RTLD_LOCAL);
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
