#pragma once
// What a limit leaves out of a run without a window: said on standard error, once however often
// its file is read, and the exit status tells a script that the output is not whole.
#include <set>
#include <string>

namespace hlyd {

// Listens for cuts while it lives. A missing member is not its business: the run names each one
// with a status of its own.
class CutsToStandardError {
public:
    CutsToStandardError();
    ~CutsToStandardError();
    CutsToStandardError(const CutsToStandardError&) = delete;
    CutsToStandardError& operator=(const CutsToStandardError&) = delete;

private:
    std::set<std::string> told_;
};

}  // namespace hlyd
