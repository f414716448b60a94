#include "files/file_loading.h"

#include "analysis/basiclan.h"
#include "base/c_debug.h"
#include "base/c_log.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "files/cut_reports.h"
#include "files/file_table.h"
#include "files/open_file_texts.h"
#include "files/proc_list.h"
#include "files/status_progress.h"

namespace hlyd {

namespace {

constexpr const char* kLoadDialect = "6";

[[noreturn]] void indexOutOfBounds(std::int16_t wWhich) {
    logBlock(std::string(
                     "ProcessSelectedFile -- Assertion Failure\nSpecified File-index not within bounds of oFile()\n") +
             "Specified File-index =" + std::to_string(wWhich) + "\noFile() bounds = (1," +
             std::to_string(oFile().Count()) + ")");
    theDebug().setStatus(kStatusAssertionFailed, 0);
    raiseInternal("ProcessSelectedFile");
}

[[noreturn]] void readPastEnd(std::int32_t record) {
    showMessage("Trying to read Record # " + std::to_string(record) + " after EOF.", "Internal Error",
                MsgButtons::OKCancel, MsgIcon::Critical);
    theDebug().BabStatus = kStatusInternalFault;
    raiseInternal("sbParseRecord");
}

void resetLoadState() {
    FileTableModule& f = fileTable();
    f.TokenElements.assign(1, 0);
    f.yProc.assign(1, ProcEntry{});
    f.sVBName.clear();
    f.readingCut.clear();
    BabInitFile(theSourceTables(), kLoadDialect);
}

// The element a token is drawn with.
TokenElement elementOf(const Token& t) {
    if (t.keyWordSeen() || t.Class == TokenClass::Operator || t.Class == TokenClass::Colon) return 3;
    if (t.Class == TokenClass::Identifier) return 2;
    if (t.Class == TokenClass::Literal) return 4;
    if (t.is(CommentishDetail::LabelRef) || t.is(CommentishDetail::Label)) return 2;
    return 1;
}

void trackConditional(std::int32_t firstNewToken) {
    const SourceTables& t = theSourceTables();
    if (firstNewToken + 1 > t.TokenCount || t.Tokens[firstNewToken].text() != "#") return;
    const std::string word = upperCase(t.Tokens[firstNewToken + 1].text());
    if (word == "IF") fileTable().bInConditional = true;
    else if (word == "END") fileTable().bInConditional = false;
}

void assignElements(std::int32_t oldTokenCount) {
    const SourceTables& t = theSourceTables();
    std::vector<TokenElement>& elements = fileTable().TokenElements;
    // A line's tokens follow those already placed: appended, without a resize's call for each line.
    if (elements.size() == static_cast<std::size_t>(oldTokenCount) + 1 && t.TokenCount >= oldTokenCount) {
        for (std::int32_t i = oldTokenCount + 1; i <= t.TokenCount; ++i) elements.push_back(elementOf(t.Tokens[i]));
        return;
    }
    elements.resize(static_cast<std::size_t>(t.TokenCount) + 1, 0);
    for (std::int32_t i = oldTokenCount + 1; i <= t.TokenCount; ++i) elements[i] = elementOf(t.Tokens[i]);
}

// Tables that grow line by line are given their room once, from the file's size: real code has
// about one token for every ten bytes. Room that is reserved but never written costs no memory.
void reserveForFile(std::uint64_t bytes) {
    theSourceTables().Texts->reserve(static_cast<std::size_t>(bytes));
    fileTable().TokenElements.reserve(static_cast<std::size_t>(bytes / 8) + 2);
}

bool atEndRecord() {
    const SourceTables& t = theSourceTables();
    return t.Records[t.RecordCount].FirstT == 0;
}

// Ties the comment lines above each procedure to it; each entry ends where the next begins.
void completeProcedureRanges() {
    const SourceTables& t = theSourceTables();
    std::vector<ProcEntry>& procs = yProc();
    std::size_t last = procs.size() - 1;
    for (std::size_t k = 0; k <= last; ++k) {
        ProcEntry& p = procs[k];
        std::int32_t h = p.FirstRecord;
        while (p.FirstRecord > 1 && t.Records[p.FirstRecord - 1].TiedTo == h && h != 0) --p.FirstRecord;
        p.FirstStatement = t.Records[p.FirstRecord].FirstS;
        if (k > 0) {
            procs[k - 1].LastRecord = p.FirstRecord - 1;
            procs[k - 1].LastStatement = t.Records[procs[k - 1].LastRecord].LastS;
        }
        if (k == last && k > 0) {
            p.LastRecord = t.RecordCount;
            p.LastStatement = t.StatementCount;
        }
    }
}

// The reader stopped at one of its limits: the marker record stands for the line it could not
// take, and the lines after it are not read. Everything before stays shown and printed.
void tellReadingStopped(const std::string& fileName) {
    const SourceTables& t = theSourceTables();
    std::int32_t marker = t.RecordCount;
    while (marker > 1 && t.Records[marker].FirstT == 0) --marker;
    std::string& cut = fileTable().readingCut;
    cut = fileName + ": reading stopped at line " + std::to_string(marker) + " (" +
          readingStopReason(theDebug().BabStatusDetail) + "); that line and the lines after it are left out";
    tellCut(CutKind::PartOfFile, cut);
}

}  // namespace

void sbParseRecord(std::int32_t& record) {
    FileTableModule& f = fileTable();
    SourceTables& t = theSourceTables();
    if (record < 2) f.bInConditional = false;
    if (t.RecordCount >= 1 && t.Records[t.RecordCount].FirstS == 0 && t.Records[t.RecordCount].FirstT == 0)
        readPastEnd(record);
    do {
        std::int32_t firstNewRecord = t.RecordCount + 1;
        std::int32_t firstNewStatement = t.StatementCount + 1;
        std::int32_t oldTokenCount = t.TokenCount;
        BabParseRecord(f.source, t);
        int status = theDebug().BabStatus;
        bool covered = static_cast<std::int32_t>(f.TokenElements.size()) - 1 >= t.TokenCount;
        if (status != kStatusOk && status != kStatusEndOfFile && covered) break;
        assignElements(oldTokenCount);
        trackConditional(oldTokenCount + 1);
        scanNewRecordsForProcedures(firstNewRecord, firstNewStatement);
        if (status == kStatusEndOfFile) break;
    } while (!((record != -1 && t.RecordCount >= record) || atEndRecord()));
    if (atEndRecord()) f.source.close();
    if (record == -1 || record > t.RecordCount) record = t.RecordCount - 1;
}

void ProcessSelectedFile(std::int16_t wWhich) {
    TraceScope trace(theDebug().TraceApplication, "ProcessSelectedFile");
    FileTableModule& f = fileTable();
    if (wWhich > f.oFile.Count() || wWhich < 0) indexOutOfBounds(wWhich);
    f.wCurrentFile = wWhich;
    f.source.close();
    const cFileDesc& entry = f.oFile.Item(wWhich);
    if (entry.FileType != kFileSource) return;
    // A file gone or unreadable since it was listed is a condition of the desktop, not a fault of
    // the program: the caller learns it from the status instead of the error report.
    resetLoadState();
    f.openFailure.clear();
    if (int err = f.source.open(entry.FileName); err != 0) {
        f.openFailure = describeSystemError(err);
        theDebug().setStatus(kStatusFileUnreadable, runtimeErrorFromErrno(err));
        return;
    }
    const SourceTables& t = theSourceTables();
    reserveForFile(f.source.size());
    for (std::int32_t k = 1;; ++k) {
        std::int32_t wanted = k;
        sbParseRecord(wanted);
        if (theDebug().BabStatus != kStatusOk) break;
        StatusBarUpdate(true, t.RecordCount);
        if (k > t.RecordCount || t.Records[k].FirstT == 0 || !f.source.isOpen()) break;
    }
    if (cDebug& d = theDebug(); d.BabStatus == kStatusReadingStopped) {
        // The status and its detail stay as the reader left them, for the callers that look.
        const std::int16_t detail = d.BabStatusDetail;
        tellReadingStopped(entry.FileName);
        d.setStatus(kStatusReadingStopped, detail);
    }
    completeProcedureRanges();
    keepOpenFileTexts(entry.FileName, t.Texts);
}

}  // namespace hlyd
