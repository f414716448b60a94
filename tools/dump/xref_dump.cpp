#include "xref_dump.h"

#include <filesystem>

#include "files/open_for_run.h"
#include "json_lines.h"
#include "tool_errors.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"
#include "xref/name_index.h"

namespace hlyd {

namespace {

JsonObject placeObject(JsonObject object, const NamePlace& place) {
    return object.addPath("file", place.file).add("line", place.line).add("proc", place.proc);
}

}  // namespace

int dumpCrossReference(const std::string& path, std::ostream& out, std::ostream& err) {
    if (unreadableFile("hlyd-dump", path, err)) return 2;
    queryLocaleSeparators();
    loadSettingsAtStartup();
    // A member that cannot be read is told on standard error, as a run without a window tells it.
    openFileForRun(std::filesystem::absolute(path).string());
    NameIndex index = indexOpenFiles();
    for (const IndexedName& name : index.names) {
        std::string uses = "[";
        for (const NameUse& use : name.uses) {
            if (uses.size() > 1) uses += ',';
            uses += placeObject(JsonObject(), use.place).add("write", use.written).str();
        }
        uses += ']';
        out << placeObject(JsonObject("name")
                                   .add("name", name.name)
                                   .add("type", nameKindText(name.kind))
                                   .add("module", name.module)
                                   .add("public", name.isPublic),
                           name.declared)
                        .addRaw("uses", uses)
                        .str()
            << '\n';
    }
    return 0;
}

}  // namespace hlyd
