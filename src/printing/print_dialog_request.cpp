#include "printing/print_dialog_request.h"

#include "files/file_table.h"
#include "settings/attributes.h"
#include "settings/settings_store.h"

namespace hlyd {

namespace {

// A project or group on screen prints with all its members, as the dialog's first choice would.
void takeAllMembersOfShownProject(PrintDialogRequest& r) {
    FileTableModule& f = fileTable();
    if (f.wCurrentFile < 1 || f.wCurrentFile > f.oFile.Count()) return;
    if (f.oFile.Item(f.wCurrentFile).FileType == kFileSource) return;
    r.AllFiles = kPrintAllFiles;
    for (int i = 1; i <= f.oFile.Count(); ++i) f.oFile.Item(i).IsSelected = true;
}

}  // namespace

PrintDialogRequest requestFromSettings() {
    const HlydSettings& s = hlydSettings();
    PrintDialogRequest r;
    r.ProcContents = s.ProcContentsPrint;
    r.TableOfContents = s.TableOfContents;
    r.CrossReference = s.CrossReference;
    r.PrintContinuous = s.PrintContinuous;
    r.SkipAttributes = displayAttributes().Format[kPrint].SkipAttributes != 0;
    r.Code = s.ViewCode[kPrint];
    r.FormDef = s.ViewFormDef[kPrint];
    r.OptionalLine = s.OptionalHeading;
    takeAllMembersOfShownProject(r);
    return r;
}

}  // namespace hlyd
