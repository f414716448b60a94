#include "html/site_writer.h"

#include "files/file_loading.h"
#include "files/file_table.h"
#include "html/site_names.h"
#include "platform/os.h"

namespace hlyd {

namespace {

std::string writeFile(const std::string& path, const std::string& content) {
    int problem = os::replaceFile(path, content);
    return problem == 0 ? std::string() : "cannot write " + path + ": " + os::errorText(problem);
}

}  // namespace

HtmlSite::HtmlSite(std::string folder) : folder_(std::move(folder)), site_(buildSiteModel()) {}

std::string HtmlSite::pathOf(const std::string& page) const {
    return folder_.empty() || folder_.back() == '/' ? folder_ + page : folder_ + "/" + page;
}

std::vector<std::string> HtmlSite::outputs() const {
    std::vector<std::string> paths = {pathOf(kSiteIndexPage)};
    for (const std::string& page : site_.pages) paths.push_back(pathOf(page));
    return paths;
}

// Each member is loaded once more for its page: the index kept names and places, not listings.
std::string HtmlSite::write(const std::function<void(const std::string& file)>& memberBegins) {
    FileTableModule& files = fileTable();
    const std::int16_t selected = files.wCurrentFile;
    std::string failure;
    for (int i = 1; i <= files.oFile.Count() && failure.empty(); ++i) {
        const std::string file = files.oFile.Item(i).FileName;
        std::size_t member = site_.memberOf(file);
        if (files.oFile.Item(i).FileType != kFileSource || member == SiteModel::kNoMember) continue;
        if (memberBegins) memberBegins(file);
        ProcessSelectedFile(static_cast<std::int16_t>(i));
        if (!files.openFailure.empty()) failure = "cannot read " + file + ": " + files.openFailure;
        else failure = writeFile(pathOf(site_.pages[member]), siteMemberPage(site_, member));
    }
    // The tables describe the file selected before, as the window and its view expect.
    if (selected >= 1 && selected <= files.oFile.Count() && selected != files.wCurrentFile)
        ProcessSelectedFile(selected);
    if (!failure.empty()) return failure;
    return writeFile(pathOf(kSiteIndexPage), siteIndexPage(site_));
}

}  // namespace hlyd
