#include "html/site_model.h"

#include <algorithm>
#include <filesystem>

#include "files/file_table.h"
#include "html/html_records.h"
#include "html/site_connectors.h"
#include "html/site_names.h"
#include "settings/attributes.h"

namespace hlyd {

namespace {

void addLink(SiteModel& site, const NamePlace& place, std::string href) {
    std::size_t m = site.memberOf(place.file);
    if (m == SiteModel::kNoMember || place.token < 0 || place.line < 1) return;
    site.links[m].push_back({place.line, {place.token, std::move(href)}});
}

void sortLinks(std::vector<LinkAt>& links) {
    std::sort(links.begin(), links.end(), [](const LinkAt& a, const LinkAt& b) {
        return a.line != b.line ? a.line < b.line : a.link.index < b.link.index;
    });
}

}  // namespace

std::size_t SiteModel::memberOf(const std::string& file) const {
    auto it = members.find(file);
    return it == members.end() ? kNoMember : it->second;
}

std::string SiteModel::lineHref(const NamePlace& place, std::size_t from) const {
    std::size_t m = memberOf(place.file);
    std::string anchor = "#L" + std::to_string(place.line);
    if (m == kNoMember) return kSiteIndexPage;
    if (place.line < 1) return pages[m];  // a place the reader could not tell: the member at least
    return m == from ? anchor : pages[m] + anchor;
}

std::string SiteModel::placeText(const NamePlace& place) const {
    std::size_t m = memberOf(place.file);
    return (m == kNoMember ? place.file : modules[m]) + ":" + std::to_string(place.line);
}

SiteModel buildSiteModel() {
    SiteModel site;
    const FileTableModule& files = fileTable();
    if (files.oFile.Count() >= 1) {
        site.source = files.oFile.Item(1).FileName;
        site.title = std::filesystem::path(site.source).filename().string();
    }
    site.index = indexOpenFiles();
    std::size_t count = site.index.files.size();
    site.pages = sitePageNames(site.index.files);
    site.links.resize(count);
    site.declared.resize(count);
    site.modules.resize(count);
    for (std::size_t m = 0; m < count; ++m) {
        site.modules[m] = std::filesystem::path(site.index.files[m]).stem().string();
        site.members.emplace(site.index.files[m], m);
    }
    for (std::size_t i = 0; i < site.index.names.size(); ++i) {
        const IndexedName& name = site.index.names[i];
        std::size_t home = site.memberOf(name.declared.file);
        if (home == SiteModel::kNoMember) continue;
        site.modules[home] = name.module;
        site.declared[home].push_back(i);
        addLink(site, name.declared, "#d" + std::to_string(i));
        for (const NameUse& use : name.uses)
            addLink(site, use.place, site.lineHref(name.declared, site.memberOf(use.place.file)));
    }
    for (std::vector<LinkAt>& links : site.links) sortLinks(links);
    return site;
}

std::string sitePageHead(const std::string& title) {
    std::string head = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n";
    head += "<meta name=\"viewport\" content=\"width=device-width\">\n";
    head += "<title>" + siteText(title) + "</title>\n<style>\n";
    head += "body { margin: 1em 2em; font-family: sans-serif; }\n"
            "pre.listing { line-height: 1.2; }\n"
            "pre.listing a { text-decoration: underline dotted; }\n"
            "pre.listing a:hover { text-decoration: underline solid; }\n"
            ":target { background: #fff3a0; }\n"
            "table { border-collapse: collapse; }\n"
            "th, td { text-align: left; vertical-align: top; padding: 2px 8px; border-bottom: 1px solid #ddd; }\n"
            "ul.procs { columns: 3 16em; }\n"
            ".kind { color: #666; }\n";
    for (int e = 1; e <= kElementCount; ++e) head += htmlElementStyle(e, e, ColourSyntax::Css) + "\n";
    head += connectorStyleRule();
    head += "</style>\n</head>\n";
    return head;
}

std::string siteNamesTable(const SiteModel& site, const std::vector<std::size_t>& names, std::size_t from,
                           bool linkNames) {
    std::string out =
            "<table class=\"names\">\n<thead><tr><th>Name</th><th>Kind</th><th>Declared</th>"
            "<th>Uses (* assigned)</th></tr></thead>\n<tbody>\n";
    for (std::size_t i : names) {
        const IndexedName& name = site.index.names[i];
        std::size_t home = site.memberOf(name.declared.file);
        std::string id = "d" + std::to_string(i);
        out += linkNames ? "<tr><td><a href=\"" + site.pages[home] + "#" + id + "\">" + siteText(name.name) + "</a>"
                         : "<tr id=\"" + id + "\"><td>" + siteText(name.name);
        out += "</td><td>" + std::string(nameKindText(name.kind)) + "</td><td><a href=\"" +
               site.lineHref(name.declared, from) + "\">" + siteText(site.placeText(name.declared)) + "</a></td><td>";
        for (std::size_t u = 0; u < name.uses.size(); ++u) {
            // A line that reads and assigns a name lists it twice: the "*" tells the assignment.
            const NamePlace& place = name.uses[u].place;
            out += (u == 0 ? "" : ", ") + std::string("<a href=\"") + site.lineHref(place, from) + "\">" +
                   siteText(site.placeText(place)) + (name.uses[u].written ? "*" : "") + "</a>";
        }
        out += "</td></tr>\n";
    }
    return out + "</tbody>\n</table>\n";
}

}  // namespace hlyd
