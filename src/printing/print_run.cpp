#include "printing/print_run.h"

#include "files/file_table.h"
#include "printing/print_run_steps.h"
#include "printing/print_state.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

void takeRequest(const PrintRunRequest& request) {
    PrintState& p = printState();
    const HlydSettings& s = hlydSettings();
    p.PageRange = request.pageRange;
    p.FirstPage = request.firstPage;
    p.LastPage = request.lastPage;
    p.PrintedPageNumber = request.startPage - 1;
    p.OptionalLine = request.optionalLine;
    p.Code = s.ViewCode[kPrint];
    p.FormDef = s.ViewFormDef[kPrint];
}

// The procedures chosen by name, in the file now loaded.
void selectProcedures(const std::vector<std::string>& names) {
    PrintState& p = printState();
    const std::vector<ProcEntry>& procs = yProc();
    p.SelectedProcs.assign(procs.size(), 0);
    p.ProcsSelected = !names.empty();
    for (std::size_t e = 0; e < procs.size(); ++e)
        for (const std::string& name : names)
            if (procs[e].Name == name) p.SelectedProcs[e] = 1;
}

}  // namespace

PrintRunResult runPrint(const PrintRunRequest& request) {
    PrintRunResult result;
    if (!printerReadyForRun(result)) return result;
    FileTableModule& files = fileTable();
    std::int16_t shown = files.wCurrentFile;
    if (!beginRun(request.outputPath, result)) return result;
    takeRequest(request);
    int current = files.wCurrentFile;
    auto wanted = [&request, &files, current](int which) {
        if (request.sourcesOnly && files.oFile.Item(which).FileType != kFileSource) return false;
        return request.allFiles || which >= current;
    };
    auto onLoaded = [&request, &files] {
        bool source = files.oFile.Item(files.wCurrentFile).FileType == kFileSource;
        selectProcedures(source ? request.procNames : std::vector<std::string>{});
    };
    printWantedFiles(wanted, !request.allFiles, onLoaded, result, request.fileBegins);
    endRun(result);
    showFileAgain(shown);
    return result;
}

}  // namespace hlyd
