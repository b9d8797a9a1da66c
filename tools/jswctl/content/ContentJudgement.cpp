#include "tools/jswctl/content/ContentJudgement.h"

#include "PublicLib/text/Text.h"
#include "samples/rules/RuleReader.h"
#include "tools/jswctl/NearestName.h"
#include "tools/jswctl/content/LanguageJudgement.h"
#include "tools/jswctl/content/PageJudgement.h"

#include <set>

namespace jsw::ctl {

namespace {

constexpr char kCatalogFile[] = "catalog.xml";
constexpr char kRulesFile[] = "rules.xml";

using Ids = std::set<std::string>;

/// "Did you mean X?" or another remedy for an unknown id.
std::string remedyFor(const std::string& id, const Ids& known, const char* otherwise) {
    const std::string nearest = nearestName(id, {known.begin(), known.end()});
    return nearest.empty() ? otherwise : concat("Did you mean ", nearest, "?");
}

/// Records an element's id; false, and reported, if it has none.
bool takeId(const sample::XmlNode& element, Ids& ids, Report& report) {
    const std::string id = element.attribute("id");
    if (id.empty()) {
        report.error(kCatalogFile, concat("a <", element.name, "> has no id and is skipped"),
                     "Give it one");
    } else if (!ids.insert(id).second) {
        report.error(kCatalogFile, concat("two elements have the id ", id, "; the last one counts"),
                     "Remove one");
    }
    return !id.empty();
}

/// The number of actions for buttons: an empty one ends the list.
std::size_t countActions(const sample::XmlNode& billboard, Report& report) {
    std::size_t count = 0;
    for (const sample::XmlNode& child : billboard.children) {
        if (child.name != "action") continue;
        if (child.text.empty()) {
            report.warn(kCatalogFile,
                        concat(billboard.attribute("id"), ": action ", count,
                               " is empty; it and the later ones do not count"),
                        "Add an address or a command");
            break;
        }
        ++count;
    }
    return count;
}

void judgeBillboard(const sample::XmlNode& billboard, const ContentFacts& facts, Ids& used,
                    Report& report) {
    const std::string id = billboard.attribute("id");
    const std::string file = billboard.attribute("file");
    const std::size_t actions = countActions(billboard, report);
    if (file.empty()) {
        report.warn(kCatalogFile, concat(id, " has no file: it is never shown"), "Set its file");
        return;
    }
    used.insert(toLower(file));
    bool isThere = false;
    for (const ContentPage& page : facts.pages) {
        if (!equalsIgnoringCase(page.name, file)) continue;
        isThere = isThere || page.language.empty();
        judgeActions(page, id, actions, report);
    }
    if (!isThere) {
        report.error(kCatalogFile, concat(id, ": there is no page Scripts\\", file),
                     "Put the page there, or correct the name");
    }
}

void judgeCategory(const sample::XmlNode& category, const Ids& billboards, Report& report) {
    const std::string id = category.attribute("id");
    std::size_t projects = 0;
    for (const sample::XmlNode& child : category.children) {
        if (child.name != "project") continue;
        ++projects;
        const std::string project = child.attribute("id");
        if (billboards.contains(project)) continue;
        report.error(
            kCatalogFile, concat("category ", id, " names ", project, ", which is not a billboard"),
            remedyFor(project, billboards, "Add the billboard, or remove it from the category"));
    }
    if (projects == 0) {
        report.warn(kCatalogFile, concat("category ", id, " has no billboards"), "Add some");
    }
}

void judgeRules(const sample::XmlNode& root, const Ids& results, Report& report) {
    try {
        std::size_t number = 0;
        for (const sample::Rule& rule : sample::readRules(root)) {
            ++number;
            if (results.contains(rule.result)) continue;
            report.error(
                kRulesFile,
                concat("rule ", number, ": ", rule.result,
                       " is neither a category nor a billboard of the catalog"),
                remedyFor(rule.result, results, "Add it to the catalog, or correct the rule"));
        }
        report.note(kRulesFile, concat(number, " rules"));
    } catch (const sample::RuleError& error) {
        report.error(kRulesFile, concat(error.what(), "; the engine refuses the whole file"),
                     "See docs/sample-modules.md for the conditions");
    }
}

}  // namespace

void judgeContent(const ContentFacts& facts, Report& report) {
    Ids billboards;
    Ids categories;
    Ids used;
    if (facts.catalog.root) {
        const auto& elements = facts.catalog.root->children;
        for (const sample::XmlNode& element : elements) {
            if (element.name == "billboard" && takeId(element, billboards, report)) {
                judgeBillboard(element, facts, used, report);
            }
        }
        for (const sample::XmlNode& element : elements) {
            if (element.name == "category" && takeId(element, categories, report)) {
                judgeCategory(element, billboards, report);
            }
        }
        if (!billboards.contains("DEFAULT")) {
            report.error(kCatalogFile, "there is no billboard DEFAULT: jobs start without a page",
                         "Add it, unless the host's settings name another one");
        }
        if (!billboards.contains("INK_STATUS")) {
            report.warn(kCatalogFile,
                        "there is no billboard INK_STATUS: the ink status button does nothing",
                        "Add it");
        }
        report.note(kCatalogFile,
                    concat(billboards.size(), " billboards, ", categories.size(), " categories"));
    } else {
        report.error(kCatalogFile, facts.catalog.problem, "Without it no page is shown");
    }
    for (const ContentPage& page : facts.pages) {
        judgePage(page, facts, report);
        if (facts.catalog.root && !used.contains(toLower(page.name))) {
            report.warn(page.fileName, "no billboard of the catalog uses this page",
                        "Use it in catalog.xml, or remove it");
        }
    }
    for (const auto& [name, problem] : facts.cartridges) {
        if (!problem.empty()) report.error(name, problem, "See docs/billboard-format.md");
    }
    for (const auto& [code, file] : facts.languages) judgeLanguage(code, file, report);
    if (!facts.rules.root) {
        report.error(kRulesFile, facts.rules.problem, "Without it jobs keep their first page");
    } else if (facts.catalog.root) {
        Ids results = billboards;
        results.insert(categories.begin(), categories.end());
        judgeRules(*facts.rules.root, results, report);
    }
}

}  // namespace jsw::ctl
