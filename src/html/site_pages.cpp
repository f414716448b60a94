#include <filesystem>

#include "analysis/source_model.h"
#include "html/html_records.h"
#include "html/site_connectors.h"
#include "html/site_model.h"
#include "html/site_names.h"
#include "platform/char_case.h"

namespace hlyd {

namespace {

// The members in the groups a reader of a project knows them by, forms first as the
// development environment lists them.
constexpr const char* kGroups[][2] = {{".FRM", "Forms"},          {".BAS", "Modules"},        {".CLS", "Classes"},
                                      {".CTL", "User Controls"},  {".PAG", "Property Pages"}, {".DSR", "Designers"},
                                      {".DOB", "User Documents"}, {"", "Other Files"}};
constexpr std::size_t kGroupCount = sizeof kGroups / sizeof kGroups[0];

std::size_t memberGroup(const std::string& file) {
    std::string extension = upperCase(std::filesystem::path(file).extension().string());
    std::size_t g = 0;
    while (g + 1 < kGroupCount && extension != kGroups[g][0]) ++g;
    return g;
}

bool isProcedure(NameKind kind) {
    return kind == NameKind::kSub || kind == NameKind::kFunction || kind == NameKind::kPropertyGet ||
           kind == NameKind::kPropertyLet || kind == NameKind::kPropertySet;
}

std::string procedureList(const SiteModel& site, std::size_t member, std::size_t from) {
    std::string out;
    for (std::size_t i : site.declared[member]) {
        const IndexedName& name = site.index.names[i];
        if (!isProcedure(name.kind)) continue;
        out += "<li><a href=\"" + site.lineHref(name.declared, from) + "\">" + siteText(name.name) +
               "</a> <span class=\"kind\">" + nameKindText(name.kind) + "</span></li>\n";
    }
    return out.empty() ? out : "<ul class=\"procs\">\n" + out + "</ul>\n";
}

// Hidden until the script runs: without it the box could do nothing.
const char* const kFilter =
        "<p id=\"filtering\" hidden><label for=\"filter\">Show the names that contain</label>\n"
        "<input type=\"search\" id=\"filter\"></p>\n";
const char* const kFilterScript =
        "<script>\n"
        "(function () {\n"
        "  var box = document.getElementById(\"filter\");\n"
        "  var rows = document.querySelectorAll(\"#xref tbody tr\");\n"
        "  document.getElementById(\"filtering\").hidden = false;\n"
        "  box.addEventListener(\"input\", function () {\n"
        "    var wanted = box.value.toLowerCase();\n"
        "    for (var i = 0; i < rows.length; i++)\n"
        "      rows[i].hidden = rows[i].cells[0].textContent.toLowerCase().indexOf(wanted) < 0;\n"
        "  });\n"
        "})();\n"
        "</script>\n";

// The lines of a member whose links are `links`, in order of line and token.
std::string listing(const std::vector<LinkAt>& links) {
    const SourceTables& t = theSourceTables();
    int width = static_cast<int>(std::to_string(t.RecordCount).size());
    std::string out = "<pre class=\"listing\">\n";
    std::vector<ShownToken> tokens;
    std::vector<TokenLink> lineLinks;
    ListingConnectors connectors;
    auto link = links.begin();
    for (std::int32_t record = 1; record <= t.RecordCount && t.Records[record].FirstT != 0; ++record) {
        shownTokens(record, firstIndentedToken(t.Records[record]), tokens);
        lineLinks.clear();
        for (; link != links.end() && link->line <= record; ++link)
            if (link->line == record) lineLinks.push_back(link->link);
        out += siteLine(tokens, record, width, lineLinks, connectors.crossing(record, tokens));
        out += '\n';
    }
    return out + "</pre>\n";
}

}  // namespace

std::string siteIndexPage(const SiteModel& site) {
    std::string out = sitePageHead(site.title) + "<body>\n<h1>" + siteText(site.title) + "</h1>\n";
    out += "<p>" + sitePathText(site.source) + "</p>\n<nav><a href=\"#xref\">Cross-reference</a></nav>\n";
    std::vector<std::vector<std::size_t>> groups(kGroupCount);
    for (std::size_t m = 0; m < site.pages.size(); ++m) groups[memberGroup(site.index.files[m])].push_back(m);
    for (std::size_t g = 0; g < kGroupCount; ++g) {
        if (groups[g].empty()) continue;
        out += "<h2>" + std::string(kGroups[g][1]) + "</h2>\n<ul>\n";
        for (std::size_t m : groups[g])
            out += "<li><a href=\"" + site.pages[m] + "\">" + siteText(site.modules[m]) + "</a> <span class=\"kind\">" +
                   sitePathText(std::filesystem::path(site.index.files[m]).filename().string()) + "</span>\n" +
                   procedureList(site, m, SiteModel::kNoMember) + "</li>\n";
        out += "</ul>\n";
    }
    std::vector<std::size_t> all(site.index.names.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
    out += "<h2 id=\"xref\">Cross-reference</h2>\n" + std::string(kFilter) + "<div id=\"names\">\n";
    out += siteNamesTable(site, all, SiteModel::kNoMember, true) + "</div>\n" + kFilterScript;
    return out + "</body>\n</html>\n";
}

std::string siteMemberPage(const SiteModel& site, std::size_t member) {
    const std::string& file = site.index.files[member];
    std::string out = sitePageHead(site.modules[member] + " - " + site.title) + "<body>\n";
    out += "<nav><a href=\"" + std::string(kSiteIndexPage) + "\">" + siteText(site.title) + "</a></nav>\n";
    out += "<h1>" + siteText(site.modules[member]) + "</h1>\n<p>" + sitePathText(file) + "</p>\n";
    out += procedureList(site, member, member) + listing(site.links[member]);
    if (!site.declared[member].empty()) {
        out += "<h2>Declared here</h2>\n";
        out += siteNamesTable(site, site.declared[member], member, false);
    }
    return out + "</body>\n</html>\n";
}

}  // namespace hlyd
