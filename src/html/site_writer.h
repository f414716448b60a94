#pragma once
// The open file, project or group as a folder of linked pages: index.html with the members by
// kind, their procedures and the cross-reference, and one page per member whose every use of a
// name of the project leads to its declaration. Relative links only: it opens from the disk.
#include <functional>
#include <string>
#include <vector>

#include "html/site_model.h"

namespace hlyd {

class HtmlSite {
public:
    // Indexes the open files: the site is planned before anything is written.
    explicit HtmlSite(std::string folder);

    // Every file the site writes, index.html first.
    std::vector<std::string> outputs() const;
    // Writes each page whole or not at all; empty when all were written, else what failed.
    // `memberBegins` hears each member's file before its page.
    std::string write(const std::function<void(const std::string& file)>& memberBegins = {});

private:
    std::string pathOf(const std::string& page) const;

    std::string folder_;
    SiteModel site_;
};

}  // namespace hlyd
