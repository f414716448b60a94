#pragma once
// What one member declares and which of its words may use a name, read from the analysis tables
// of the member loaded now. The names are resolved once every member has been read, since a use
// may refer to a Public name of a member read later.
#include <cstdint>
#include <string>
#include <vector>

#include "xref/name_index.h"

namespace hlyd {

constexpr int kModuleLevel = -1;

struct DeclaredName {
    IndexedName entry;
    std::string key;          // the name in upper case: VB compares names without regard to case
    int proc = kModuleLevel;  // the procedure (by its order in the member) whose local it is
};

// A name that may use a declaration; most are identifiers of the code, so a candidate is kept
// small and its place spelt out only once it resolves.
struct UseCandidate {
    std::string key;
    std::string qualifier;  // upper case: the word before "." when the name follows one; "ME" for Me
    bool qualified = false;
    bool written = false;  // the statement assigns to it
    int proc = kModuleLevel;
    std::int32_t line = 0;
};

struct MemberNames {
    std::string module;          // upper case, as a qualifier names it
    bool standardModule = true;  // a .bas: its Public names are seen everywhere without a qualifier
    std::vector<DeclaredName> declared;
    std::vector<UseCandidate> uses;
    std::string file;
    std::vector<std::string> procNames;         // by the procedures' order in the member
    std::vector<std::size_t> procDeclarations;  // the same, their places in `declared`
};

// Reads the tables of the member loaded now, whose file and VB_Name are given.
MemberNames gatherMemberNames(const std::string& file, const std::string& module, bool standardModule);

}  // namespace hlyd
