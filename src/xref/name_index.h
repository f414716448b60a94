#pragma once
// The cross-reference of a file or project: every name the code declares, where, and every place
// it is used. It is built from the analysis tables of each member in turn, never by reading the
// text again, so that a comment or a string can never count as a use.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace hlyd {

enum class NameKind : std::uint8_t {
    kSub,
    kFunction,
    kPropertyGet,
    kPropertyLet,
    kPropertySet,
    kEvent,
    kDeclare,
    kType,
    kTypeMember,
    kEnum,
    kEnumMember,
    kConst,
    kVariable,
    kParameter,
    kControl,  // of a form, user control or property page: the form's own, and the others' as Form.Name
};

// The word a listing and the JSON give the kind: "Sub", "Property Get", "Enum Member", ...
const char* nameKindText(NameKind kind);

// Where a name stands: its member's file, the line (the record, from 1) and the procedure, empty
// outside one.
struct NamePlace {
    std::string file;
    std::int32_t line = 0;
    std::string proc;
    // The name's token among the tokens of its line, from 0: what lets a listing mark the very
    // word. -1 when not known.
    std::int32_t token = -1;
};

struct NameUse {
    NamePlace place;
    bool written = false;  // the statement assigns to it
};

struct IndexedName {
    std::string name;    // as declared
    std::string module;  // the member's VB_Name, else its file's name
    NameKind kind = NameKind::kVariable;
    bool isPublic = false;  // seen from other members without a qualifier
    NamePlace declared;
    std::vector<NameUse> uses;
};

struct NameIndex {
    std::vector<IndexedName> names;  // in the order declared, member by member
    std::vector<std::string> files;  // the members indexed
};

// Loads every source member of the open file table in turn and indexes them together; then the
// file selected before is loaded again, so that the tables describe it as they did. `loading`
// hears of each member before it is loaded, for a long run to show how far it has come.
NameIndex indexOpenFiles(const std::function<void(const std::string& file)>& loading = {});

}  // namespace hlyd
