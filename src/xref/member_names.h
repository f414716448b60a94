#pragma once
// What one member declares and which of its words may use a name, read from the analysis tables
// of the member loaded now. The names are resolved once every member has been read, since a use
// may refer to a Public name of a member read later.
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "xref/name_index.h"

namespace hlyd {

constexpr int kModuleLevel = -1;

// A name as a number, the same for every spelling of it: VB compares names without regard to
// case, and a large project has a few thousand names but a million uses of them.
using NameKey = std::uint32_t;
constexpr NameKey kNoKey = 0;

class NameKeys {
public:
    NameKey of(std::string_view name);

private:
    std::unordered_map<std::string, NameKey> keys_;
    std::string upper_;
};

struct DeclaredName {
    IndexedName entry;
    NameKey key = kNoKey;
    int proc = kModuleLevel;  // the procedure (by its order in the member) whose local it is
};

// A name that may use a declaration; most are identifiers of the code, so a candidate is kept
// small and its place spelt out only once it resolves.
struct UseCandidate {
    NameKey key = kNoKey;
    NameKey qualifier = kNoKey;  // the word before "." when the name follows one
    bool qualified = false;
    bool qualifiedByMe = false;
    bool written = false;  // the statement assigns to it
    int proc = kModuleLevel;
    std::int32_t line = 0;
    std::int32_t token = -1;  // among the tokens of its line, from 0
};

struct MemberNames {
    NameKey module = kNoKey;     // as a qualifier names it
    bool standardModule = true;  // a .bas: its Public names are seen everywhere without a qualifier
    std::vector<DeclaredName> declared;
    std::vector<UseCandidate> uses;
    std::string file;
    std::vector<std::string> procNames;         // by the procedures' order in the member
    std::vector<std::size_t> procDeclarations;  // the same, their places in `declared`
};

// Reads the tables of the member loaded now, whose file and VB_Name are given.
MemberNames gatherMemberNames(const std::string& file, const std::string& module, bool standardModule, NameKeys& keys);

}  // namespace hlyd
