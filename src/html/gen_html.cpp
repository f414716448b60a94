#include "html/gen_html.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "base/app_info.h"
#include "base/hlyd_error.h"
#include "base/message_box.h"
#include "files/output_guard.h"
#include "files/run_inputs.h"
#include "html/html_text.h"
#include "platform/ui.h"
#include "settings/settings_store.h"
#include "settings/system_queries.h"

namespace hlyd {

namespace {
const char* const kLineEnd = "\r\n";
}  // namespace

const char* htmlClassName(int element) {
    static const char* const kNames[] = {"Comment", "Identifier", "KeyWord",  "Literal",
                                         "Project", "Proc",       "PageHead", "LineNo"};
    if (element >= 1 && element <= 8) return kNames[element - 1];
    return element == 99 ? "a:link" : "Unknown";
}

std::string htmlColourText(std::uint32_t colour) {
    char hex[16];
    std::snprintf(hex, sizeof hex, "%X", colour);
    std::string h = hex;
    switch (h.size()) {
        case 2: return h + "0000";
        case 4: return h.substr(2, 2) + h.substr(0, 2) + "00";
        case 6: return h.substr(4, 2) + h.substr(2, 2) + h.substr(0, 2);
        default: return "000000";
    }
}

std::string htmlStyleRule(int element, const std::string& fontName, long size, bool italic, bool bold,
                          std::uint32_t colour, ColourSyntax syntax) {
    std::string text = std::string(".") + htmlClassName(element) + " {" + kLineEnd;
    text += std::string("    color:") + (syntax == ColourSyntax::Css ? "#" : "") + htmlColourText(colour) + ";" +
            kLineEnd;
    text += "    font-family:" + styleSafe(fontName) + ";" + kLineEnd;
    text += "    font-size:" + std::to_string(size) + "pt;" + kLineEnd;
    text += std::string("    font-weight: ") + (bold ? "bold;" : "normal;") + kLineEnd;
    text += std::string("    font-style: ") + (italic ? "italic;" : "normal;") + kLineEnd;
    text += "}";
    return text;
}

// A document that was not finished never stands under the chosen name: the writer abandons it.
cGenHTML::~cGenHTML() = default;

void cGenHTML::failed(int reason) {
    file_.reset();
    gathered_.clear();
    throw HlydError(runtimeErrorFromErrno(reason), describeSystemError(reason), "cGenHTML");
}

std::string cGenHTML::GetFileName() {
    std::size_t dot = fileName_.find_last_of('.');
    std::string proposed = dot == std::string::npos ? fileName_ + ".HTM" : fileName_.substr(0, dot + 1) + "HTML";
    FileDialogRequest request;
    request.title = "Save as HTML";
    request.fileName = proposed;
    // A user who exports several files wants them together: the dialog starts where the last
    // document went, and only the first export of all starts beside its source.
    const std::string& lastFolder = hlydSettings().LastHTMLLoc;
    if (!lastFolder.empty()) {
        std::string directory;
        sbFileNameFromDir(proposed, request.fileName, directory);
        request.directory = lastFolder;
    }
    request.filter = "HTML Files|*.htm;*.html|All Files (*.*)|*.*";
    std::optional<std::string> chosen = theUi().saveFileDialog(request);
    Cancelled = !chosen.has_value();
    return chosen.value_or(std::string());
}

void cGenHTML::InitDoc(const std::string& title, const std::string& fileName, const std::string& heading,
                       const std::string& subTitle1, const std::string& subTitle2) {
    currentElement_ = -1;
    if (!fileName.empty()) fileName_ = fileName;
    outputPath_ = GetFileName();
    if (Cancelled) return;
    title_ = title;
    heading_ = heading.empty() ? title : heading;
    subTitle1_ = subTitle1;
    subTitle2_ = subTitle2;
    // Never over a file of the user's or over a device or FIFO; through a link, to its target.
    if (std::string refusal = outputRefusal({outputPath_, OutputKind::Html, "the Save as HTML dialog"});
        !refusal.empty()) {
        showMessage(theAppInfo().Title + " " + refusal, theAppInfo().Title, MsgButtons::OK, MsgIcon::Warning);
        Cancelled = true;
        return;
    }
    auto writer = std::make_unique<os::AtomicWriter>();
    if (int problem = writer->begin(outputPath_); problem != 0) failed(problem);
    file_ = std::move(writer);
    const std::string& app = theAppInfo().Title;
    writeLine("<html>");
    writeLine("<head>");
    writeLine("<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">");
    writeLine("<meta name=\"ProgId\" content = \"" + app + "\" > ");
    writeLine("<meta name=\"Generator\" content=\"" + app + "\">");
    writeLine("<meta name=\"Originator\" content=\"" + app + "\">");
    writeLine("<title>" + escapedText(title) + "</title>");
}

void cGenHTML::writeLine(std::string_view text) {
    write(text);
    write(kLineEnd);
}

void cGenHTML::passOn() {
    if (!file_) return;
    bool ok = file_->write(gathered_.view());
    gathered_.clear();
    if (!ok) failed(file_->error());
}

void cGenHTML::InsertStyleStart() {
    for (const char* line : {"<style>", "<!--", ".connect {", "    .background: blue;", "}"}) writeLine(line);
}

void cGenHTML::InsertStyle(int element, const std::string& fontName, long size, bool italic, bool bold,
                           std::uint32_t colour) {
    writeLine(htmlStyleRule(element, fontName, size, italic, bold, colour));
}

void cGenHTML::InsertStyleEnd() {
    writeLine("//-->");
    writeLine("</style>");
    writeLine("<H1 Align=center>" + escapedText(heading_) + "</H1>");
    writeLine("<p>" + escapedText(fileName_) + "<br>");
    writeLine(escapedText(subTitle1_) + "<br>");
    writeLine(escapedText(subTitle2_) + "<br>" + "</p>");
    writeLine("</head>");
    writeLine("<body>");
    writeLine("<pre>");
}

void cGenHTML::InsertBodyStart() {
    writeLine("<body>");
    writeLine("<pre>");
}

void cGenHTML::InsertToken(const std::string& text, int spaces, int element, std::string& result) {
    LineBuffer line;
    AppendToken(text, spaces, element, line);
    result = line.view();
}

// Every token of a new element changes the tag: the switch, with the close of the tag before it,
// is made once per element and class of change, and goes into the line as one piece.
void cGenHTML::makeSwitchTag(SwitchTag& tag, int element, bool closeFirst) {
    std::string text = std::string(closeFirst ? "</font>" : "") + "<font class=\"" + htmlClassName(element) + "\">";
    tag.size = std::min(text.size(), SwitchTag::kRoom);  // the class names are short: it always fits
    std::memcpy(tag.bytes, text.data(), tag.size);
}

void cGenHTML::InsertLine(const std::string& text) {
    LineBuffer line;
    line.append(text);
    EmitLine(line);
}

// A line is one write: the anchor, the link back to the contents, the closing tag and the line
// end join it in the caller's buffer, instead of going out as three more pieces.
void cGenHTML::EmitLine(LineBuffer& line) {
    if (!pendingAnchor_.empty()) {
        std::string end;
        InsertProcEnd(end);
        line.insertFront("<a name=\"" + escapedText(pendingAnchor_) + "\">");
        line.append(end);
        pendingAnchor_.clear();
    }
    if (currentElement_ != -1) {
        line.append("</font>");
        currentElement_ = -1;
    }
    line.append(kLineEnd);
    write(line.view());
}

void cGenHTML::InsertLineBreak(std::string& result) {
    result.clear();
    if (currentElement_ == -1) return;
    result = "</font>";
    currentElement_ = -1;
}

void cGenHTML::InsertHREF(const std::string& name, std::string& result) {
    pendingAnchor_ = name;
    result.clear();
}

void cGenHTML::InsertProcStart(const std::string& line, const std::string& name) {
    std::string ignored;
    InsertHREF(name, ignored);
    procLine_ = line;
}

// ProcLine keeps a copy of the closing tag only: the tag stays open for the line that is written
// next, whose own line break closes it. (Taking the closing here lost it from the document.)
void cGenHTML::InsertProcContinue() {
    if (currentElement_ != -1) procLine_ += "</font>";
}

void cGenHTML::InsertProcEnd(std::string& result) {
    result = "  <A HREF=\"#TopOfTOC\">Table of Contents</A>";
    procLine_.clear();
}

void cGenHTML::InsertTOCLine(const std::string& name) {
    std::string shown = escapedText(name);
    writeLine("<a href=\"#" + shown + "\">" + shown + "</a>");
}

void cGenHTML::InsertHeaderLinks() {
    writeLine("<!-- HEADER LINKS -->");
    writeLine("<span class=\"link\">");
}

void cGenHTML::InsertConnectTerm(int count) {
    writeLine("<font class=\"connect\">" + std::string(count > 0 ? count : 0, ' ') + "</font> ");
}

void cGenHTML::TerminateDoc() {
    writeLine("</body>");
    writeLine("</pre>");
    writeLine("</html>");
    if (!file_) return;
    passOn();
    int problem = file_->commit();
    file_.reset();
    if (problem != 0) failed(problem);
}

}  // namespace hlyd
