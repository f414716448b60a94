#include "xref/name_index.h"

#include <filesystem>

#include "files/file_loading.h"
#include "files/file_table.h"
#include "platform/char_case.h"
#include "xref/member_names.h"
#include "xref/name_resolution.h"

namespace hlyd {

const char* nameKindText(NameKind kind) {
    switch (kind) {
        case NameKind::kSub: return "Sub";
        case NameKind::kFunction: return "Function";
        case NameKind::kPropertyGet: return "Property Get";
        case NameKind::kPropertyLet: return "Property Let";
        case NameKind::kPropertySet: return "Property Set";
        case NameKind::kEvent: return "Event";
        case NameKind::kDeclare: return "Declare";
        case NameKind::kType: return "Type";
        case NameKind::kTypeMember: return "Type Member";
        case NameKind::kEnum: return "Enum";
        case NameKind::kEnumMember: return "Enum Member";
        case NameKind::kConst: return "Const";
        case NameKind::kVariable: return "Variable";
        case NameKind::kParameter: return "Parameter";
        case NameKind::kControl: return "Control";
    }
    return "";
}

namespace {

// Only a standard module's Public names are seen from everywhere without naming an object.
bool isStandardModule(const std::string& path) {
    return upperCase(std::filesystem::path(path).extension().string()) == ".BAS";
}

}  // namespace

NameIndex indexOpenFiles(const std::function<void(const std::string& file)>& loading) {
    std::vector<MemberNames> members;
    std::vector<std::string> files;
    NameKeys keys;
    FileTableModule& f = fileTable();
    const std::int16_t selected = f.wCurrentFile;
    for (int i = 1; i <= f.oFile.Count(); ++i) {
        const cFileDesc desc = f.oFile.Item(i);
        if (desc.FileType != kFileSource) continue;
        if (loading) loading(desc.FileName);
        ProcessSelectedFile(static_cast<std::int16_t>(i));
        if (!f.openFailure.empty()) continue;  // told as the load tells it; nothing to index
        std::string module = f.sVBName.empty() ? std::filesystem::path(desc.FileName).stem().string() : f.sVBName;
        members.push_back(gatherMemberNames(desc.FileName, module, isStandardModule(desc.FileName), keys));
        files.push_back(desc.FileName);
    }
    // The tables describe the file selected before, as the window and its view expect.
    if (selected >= 1 && selected <= f.oFile.Count() && selected != f.wCurrentFile) ProcessSelectedFile(selected);
    NameIndex index = resolveNames(std::move(members));
    index.files = std::move(files);
    return index;
}

}  // namespace hlyd
