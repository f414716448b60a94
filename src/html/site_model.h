#pragma once
// What the pages of a site share: the cross-reference of the open files, each member's page, and
// where each word that names something of the project leads. Built once for the whole site, so
// that no page reads the project again.
#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "html/site_line.h"
#include "xref/name_index.h"

namespace hlyd {

// A link on one token of a member's listing.
struct LinkAt {
    std::int32_t line = 0;
    TokenLink link;
};

struct SiteModel {
    std::string title;   // the project, group or file shown
    std::string source;  // its path
    NameIndex index;
    std::vector<std::string> pages;                        // by the members of the index
    std::vector<std::string> modules;                      // the same: each member's VB_Name
    std::vector<std::vector<LinkAt>> links;                // the same: by line and token
    std::vector<std::vector<std::size_t>> declared;        // the same: the names each declares
    std::unordered_map<std::string, std::size_t> members;  // by file: a million uses look here

    static constexpr std::size_t kNoMember = static_cast<std::size_t>(-1);
    std::size_t memberOf(const std::string& file) const;
    // A link to the line of a place, from the page of `from`.
    std::string lineHref(const NamePlace& place, std::size_t from = kNoMember) const;
    // "Module:12", as a list of uses shows a place.
    std::string placeText(const NamePlace& place) const;
};

// Indexes the open files and lays out the links between their pages.
SiteModel buildSiteModel();

// The page's start up to its body: UTF-8, the title, and the listing's classes in the colours of
// the settings.
std::string sitePageHead(const std::string& title);
// A table of names with their kind, declaration and uses, each row's id "d" and the name's number.
std::string siteNamesTable(const SiteModel& site, const std::vector<std::size_t>& names, std::size_t from,
                           bool linkNames);
// The pages themselves: the index, and the listing of the member loaded now.
std::string siteIndexPage(const SiteModel& site);
std::string siteMemberPage(const SiteModel& site, std::size_t member);

}  // namespace hlyd
