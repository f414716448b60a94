#include "printing/reader_marks.h"

#include "files/file_table.h"
#include "files/proc_list.h"
#include "platform/path_parts.h"
#include "platform/printer.h"
#include "printing/print_state.h"
#include "printing/printing_state.h"

namespace hlyd {

namespace {

int& awaited() { return printingState().awaitedDeclaration; }
std::string& lastDeclared() { return printingState().lastDeclared; }

constexpr int kFileLevel = 0, kProcedureLevel = 1;

}  // namespace

std::string fileDestination(int file) { return "file" + std::to_string(file); }

std::string procedureDestination(int file, int entry) {
    return fileDestination(file) + ".proc" + std::to_string(entry);
}

void markDocumentStart(Printer& printer, std::int16_t kind) {
    if (kind != kPageCode && kind != kPageProject) return;
    const FileTableModule& files = fileTable();
    int file = files.wCurrentFile;
    if (file < 1 || file > files.oFile.Count()) return;
    printer.nameDestination(fileDestination(file), 0, nameAndFolder(files.oFile.Item(file).FileName).name, kFileLevel);
}

void awaitDeclaration(int entry) {
    awaited() = entry;
    if (entry >= 0) lastDeclared() = procedureDestination(fileTable().wCurrentFile, entry);
}

void placeAwaitedDeclaration(Printer& printer, float lineTop) {
    if (awaited() < 0) return;
    const std::vector<ProcEntry>& procs = yProc();
    if (static_cast<std::size_t>(awaited()) < procs.size())
        printer.nameDestination(procedureDestination(fileTable().wCurrentFile, awaited()), lineTop,
                                procs[static_cast<std::size_t>(awaited())].Name, kProcedureLevel);
    awaited() = -1;
}

const std::string& lastDeclaration() { return lastDeclared(); }

void linkLines(Printer& printer, float top, float bottom, const std::string& name) {
    if (name.empty() || bottom <= top) return;
    const AreaRecord& a = printState().UsableArea;
    printer.linkTo(a.Left, top, a.Left + a.Width, bottom, name);
}

}  // namespace hlyd
