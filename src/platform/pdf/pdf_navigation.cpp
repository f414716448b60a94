// What lets a reader find their way through a PDF file: the outline of files and procedures, the
// places links lead to, and the numbers a viewer shows for the pages, as the listing prints them.
#include <vector>

#include "platform/pdf/pdf_syntax.h"
#include "platform/pdf/pdf_writer.h"
#include "platform/text_encoding.h"

namespace hlyd {

namespace {

// A title as a PDF text string: UTF-16BE behind its byte order mark, so that every character of
// Windows-1252 reaches the outline as itself.
std::string textString(const std::string& cp1252) {
    std::string out = "<FEFF";
    for (unsigned char c : cp1252) appendHex16(out, cp1252CodePoint(c));
    return out + ">";
}

}  // namespace

void PdfWriter::notePlaces(const PageMarks& marks, std::size_t page, double scale, PdfSize sheet, PdfPoint origin) {
    for (const PageMarks::Destination& d : marks.destinations) {
        Place place{page, sheet.height - origin.y - d.y * scale};
        places_.try_emplace(d.name, place);
        if (!d.title.empty()) outline_.push_back({d.title, d.level, place});
    }
}

// A page starts a range of labels unless its number goes on from the page before in the same style.
void PdfWriter::noteLabel(const PageMarks& marks, std::size_t page) {
    if (!marks.labelled) return;
    if (!labels_.empty()) {
        const LabelRange& last = labels_.back();
        if (last.roman == marks.roman && last.number >= 1 &&
            static_cast<std::int64_t>(last.number) + static_cast<std::int64_t>(page - last.firstPage) == marks.number)
            return;
    }
    labels_.push_back({page, marks.number, marks.roman});
}

std::string PdfWriter::pageLabels() const {
    if (labels_.empty()) return {};
    std::string nums;
    // Pages before the first label (none in a listing) count in figures from one.
    if (labels_.front().firstPage != 0) nums += "0 << /S /D >> ";
    for (const LabelRange& range : labels_) {
        nums += std::to_string(range.firstPage) + " << ";
        // A number below one has no numeral: a Roman one shows nothing, one in figures shows itself.
        if (range.number >= 1)
            nums += std::string(range.roman ? "/S /r" : "/S /D") + " /St " + std::to_string(range.number);
        else if (!range.roman) nums += "/P (" + std::to_string(range.number) + ")";
        nums += " >> ";
    }
    return " /PageLabels << /Nums [" + nums + "] >>";
}

std::string PdfWriter::destinationOf(const Place& place) const {
    return "[" + std::to_string(pages_[place.page].object) + " 0 R /XYZ null " + pdfNumber(place.y) + " null]";
}

// Files at the top of the outline, each procedure under the file named before it. With several
// files the outline opens on the files alone.
std::uint32_t PdfWriter::writeOutline() {
    if (outline_.empty()) return 0;
    std::uint32_t root = reserveObject();
    std::size_t n = outline_.size();
    std::vector<std::uint32_t> object(n);
    for (std::uint32_t& o : object) o = reserveObject();
    constexpr std::size_t kRoot = static_cast<std::size_t>(-1);
    std::vector<std::size_t> parent(n, kRoot);
    std::vector<std::vector<std::size_t>> children(n + 1);  // the root's at n
    std::size_t lastFile = kRoot;
    for (std::size_t i = 0; i < n; ++i) {
        if (outline_[i].level > 0 && lastFile != kRoot) parent[i] = lastFile;
        else lastFile = i;
        children[parent[i] == kRoot ? n : parent[i]].push_back(i);
    }
    bool open = children[n].size() == 1;
    for (std::size_t at = 0; at <= n; ++at) {
        const std::vector<std::size_t>& kids = children[at];
        for (std::size_t k = 0; k < kids.size(); ++k) {
            std::size_t i = kids[k];
            std::string item = "<< /Title " + textString(outline_[i].title) + " /Parent " +
                               std::to_string(at == n ? root : object[at]) + " 0 R /Dest " +
                               destinationOf(outline_[i].place);
            if (k > 0) item += " /Prev " + std::to_string(object[kids[k - 1]]) + " 0 R";
            if (k + 1 < kids.size()) item += " /Next " + std::to_string(object[kids[k + 1]]) + " 0 R";
            const std::vector<std::size_t>& own = children[i];
            if (!own.empty())
                item += " /First " + std::to_string(object[own.front()]) + " 0 R /Last " +
                        std::to_string(object[own.back()]) + " 0 R /Count " +
                        std::to_string(open ? static_cast<long>(own.size()) : -static_cast<long>(own.size()));
            beginObject(object[i]);
            write(item + " >>\nendobj\n");
        }
    }
    const std::vector<std::size_t>& top = children[n];
    std::size_t shown = top.size();
    if (open)
        for (std::size_t i : top) shown += children[i].size();
    beginObject(root);
    write("<< /Type /Outlines /First " + std::to_string(object[top.front()]) + " 0 R /Last " +
          std::to_string(object[top.back()]) + " 0 R /Count " + std::to_string(shown) + " >>\nendobj\n");
    return root;
}

}  // namespace hlyd
