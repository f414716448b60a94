#pragma once
// The choice of a listing's members. Reading a project asks for it through a hook of the files'
// part, which the shell points at the Project File dialog's procedure in every Session: the
// dialog and its form stand above files/, and reading a project must not know them.
#include <any>
#include <functional>
#include <optional>
#include <string>

#include "files/file_table.h"

namespace hlyd {

struct MemberChoice {
    FileCollection chosen;  // the entries that join the file table
    // The accepted form, kept by the files while the project is open and dropped when it closes.
    // Only the dialog's procedure knows its type.
    std::any form;
};

// The members of the listing in oProjectFiles() chosen under `caption`; nothing on Cancel.
using MemberChooser = std::function<std::optional<MemberChoice>(const std::string& caption)>;

}  // namespace hlyd
