#pragma once
// The HTML document of a listing: a fixed head, a style per language element, and the text in
// font tags inside one pre element. It knows HTML and nothing of source code.
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "html/html_text.h"
#include "html/line_buffer.h"
#include "platform/os.h"

namespace hlyd {

class cGenHTML {
public:
    cGenHTML() = default;
    ~cGenHTML();
    cGenHTML(const cGenHTML&) = delete;
    cGenHTML& operator=(const cGenHTML&) = delete;

    bool Cancelled = false;

    const std::string& FileName() const { return fileName_; }
    void setFileName(const std::string& name) { fileName_ = name; }
    const std::string& OutputPath() const { return outputPath_; }

    void InitDoc(const std::string& title, const std::string& fileName, const std::string& heading,
                 const std::string& subTitle1, const std::string& subTitle2);
    void InsertStyleStart();
    void InsertStyle(int element, const std::string& fontName, long size, bool italic, bool bold, std::uint32_t colour);
    void InsertStyleEnd();
    void InsertBodyStart();
    void InsertToken(const std::string& text, int spaces, int element, std::string& result);
    // As InsertToken, but adds to the end of `line`: a whole line is built in one buffer. The
    // blanks, the tag and the text go into room asked for once: the most the text can become,
    // and the tag's whole room, which the blanks' last word fits in too. Inline: it runs once a
    // token, and the call cost a tenth of it.
    void AppendToken(std::string_view text, int spaces, int element, LineBuffer& line) {
        std::size_t blanks = spaces > 0 ? static_cast<std::size_t>(spaces) : 0;
        char* out = writeBlanks(line.room(blanks + SwitchTag::kRoom + text.size() * kWidestShownByte), blanks);
        if (element != currentElement_) {
            const SwitchTag& tag = switchTag(element, currentElement_ != -1);
            std::memcpy(out, tag.bytes, SwitchTag::kRoom);
            out += tag.size;
            currentElement_ = static_cast<std::int16_t>(element);
        }
        line.commit(writeSourceText(out, text));
    }
    void InsertLine(const std::string& text);
    // As InsertLine, but ends the line in `line` itself and writes it in one piece.
    void EmitLine(LineBuffer& line);
    void InsertLineBreak(std::string& result);
    void LineStart(std::string& result) { result.clear(); }
    void InsertHorizontalLine() { writeLine("<hr>"); }
    void InsertHREF(const std::string& name, std::string& result);
    void InsertProcStart(const std::string& line, const std::string& name);
    void InsertProcContinue();
    void InsertProcEnd(std::string& result);
    void InsertTOCStart() { writeLine("<a name=\"TopOfTOC\">Table of Contents</A>"); }
    void InsertTOCLine(const std::string& name);
    void InsertHeaderLinks();
    void InsertHeaderLinksEnd() { writeLine("</span>"); }
    void InsertConnectTerm(int count);
    void InsertConnectVert() { writeLine("<font class=\"connect\"></font>   "); }
    // Ends the document; only now does it replace a file of its name.
    void TerminateDoc();

private:
    std::string GetFileName();
    void writeLine(std::string_view text);
    // The document's pieces are gathered here and handed to the writer in large blocks: a call
    // into it for each line cost more than copying the line.
    void write(std::string_view text) {
        if (!file_) return;
        gathered_.append(text);
        if (gathered_.size() >= kGatheredBytes) passOn();
    }
    void passOn();
    static constexpr std::size_t kGatheredBytes = std::size_t{64} * 1024;
    [[noreturn]] void failed(int reason);  // drops the document and raises the system's reason
    static int switchSlot(int element) { return element >= 1 && element <= 8 ? element : element == 99 ? 9 : 0; }
    // A tag padded to a fixed room, so that it goes into a line as one move of known size.
    struct SwitchTag {
        static constexpr std::size_t kRoom = 48;
        char bytes[kRoom] = {};
        std::size_t size = 0;
    };
    const SwitchTag& switchTag(int element, bool closeFirst) {
        SwitchTag& tag = switchTags_[closeFirst ? 1 : 0][switchSlot(element)];
        if (tag.size == 0) makeSwitchTag(tag, element, closeFirst);
        return tag;
    }
    static void makeSwitchTag(SwitchTag& tag, int element, bool closeFirst);

    // Written beside the output and put in its place when complete.
    std::unique_ptr<os::AtomicWriter> file_;
    LineBuffer gathered_;
    std::string fileName_;
    std::string outputPath_;
    std::string pendingAnchor_;
    std::int16_t currentElement_ = -1;
    std::string procLine_;
    // The tags that open an element's font, without and with the close of the one before; by
    // element 1 to 8, 9 for links and 0 for any other.
    SwitchTag switchTags_[2][10];
    std::string subTitle1_, subTitle2_, heading_, title_;
};

// "Comment", "Identifier", ... for elements 1 to 8, "a:link" for 99, "Unknown" for the rest.
const char* htmlClassName(int element);

// How a rule writes its colour: the single document keeps the bare digits it always wrote, which
// browsers accept only outside standards mode; a page that declares HTML5 needs the "#".
enum class ColourSyntax { Bare, Css };

// The style rule of an element's class: its colour, font, size, weight and slant.
std::string htmlStyleRule(int element, const std::string& fontName, long size, bool italic, bool bold,
                          std::uint32_t colour, ColourSyntax syntax = ColourSyntax::Bare);

// A colour value (blue in the high byte) as "RRGGBB"; odd-length hex gives black, on purpose.
std::string htmlColourText(std::uint32_t colour);

}  // namespace hlyd
