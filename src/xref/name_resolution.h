#pragma once
// Which declaration a use refers to, by VB's rules as far as the tables show them: a procedure's
// locals and parameters first, then the member's own names, then the Public names of the others;
// "Module.Name" and "Me.Name" in the member named; an Enum's name before its member. A name after
// "." of any other object is not guessed, nor one that several members declare Public.
#include <vector>

#include "xref/member_names.h"
#include "xref/name_index.h"

namespace hlyd {

// Joins the members' declarations and uses into one index: locals resolve uses but are not
// indexed themselves.
NameIndex resolveNames(std::vector<MemberNames> members);

}  // namespace hlyd
