#include "tests/tools/check/JudgementTest.h"
#include "tools/jswctl/content/ContentJudgement.h"
#include "window/view/AccessKeys.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace jsw::ctl {
namespace {

sample::XmlNode node(const std::string& name, std::map<std::string, std::string, std::less<>> with,
                     std::vector<sample::XmlNode> children = {}) {
    return {name, std::move(with), {}, std::move(children)};
}

ContentPage page(const std::string& name, const std::string& language, const std::string& text) {
    ContentPage result;
    result.name = name;
    result.language = language;
    result.fileName = name + language;
    result.parsed = window::parseBillboard(text);
    return result;
}

/// A correct folder: two pages, one of them in German, a category and a rule.
ContentFacts goodContent() {
    ContentFacts facts;
    sample::XmlNode action = node("action", {});
    action.text = "http://shop.example.com";
    facts.catalog.root =
        node("catalog", {},
             {node("billboard", {{"id", "DEFAULT"}, {"file", "a.jbb"}}),
              node("billboard", {{"id", "INK_STATUS"}, {"file", "b.jbb"}}, {action}),
              node("category", {{"id", "INK"}}, {node("project", {{"id", "INK_STATUS"}})})});
    facts.rules.root = node("rules", {}, {node("rule", {{"result", "INK"}})});
    facts.pages = {
        page("a.jbb", "", "title=A"),
        page("b.jbb", "", "title=B\nbutton=&Order|LAUNCH_URL|0\n"),
        page("b.jbb", "de", "title=B\nbutton=&Patronen|LAUNCH_URL|0\n"),
    };
    // The file that comes with the window.
    std::ifstream file(JSW_SOURCE_FOLDER "/window/languages/jswtexts.de.txt", std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    facts.languages["de"] = common::parseLanguageFile(text.str());
    return facts;
}

struct ContentRow {
    void (*spoil)(ContentFacts& facts);
    Severity severity;
    const char* finding;
};

TEST(ContentJudgementTest, EachMistakeIsNamed) {
    constexpr auto kError = Severity::error;
    constexpr auto kWarning = Severity::warning;
    const ContentRow rows[] = {
        {[](ContentFacts& f) { f.catalog.root->children[0].attributes.erase("id"); }, kError,
         "a <billboard> has no id"},
        {[](ContentFacts& f) { f.catalog.root->children[1].attributes["id"] = "DEFAULT"; }, kError,
         "two elements have the id DEFAULT"},
        {[](ContentFacts& f) { f.pages.erase(f.pages.begin()); }, kError,
         "DEFAULT: there is no page Scripts\\a.jbb"},
        {[](ContentFacts& f) { f.catalog.root->children[0].attributes.erase("file"); }, kWarning,
         "no billboard of the catalog uses this page"},
        {[](ContentFacts& f) { f.catalog.root->children[1].children[0].text = ""; }, kWarning,
         "INK_STATUS: action 0 is empty"},
        {[](ContentFacts& f) { f.catalog.root->children[1].children.clear(); }, kError,
         "'&Patronen' uses action 0, but INK_STATUS has 0"},
        {[](ContentFacts& f) { f.pages[0] = page("a.jbb", "", "title=A\nbutton=B|NIX|0"); },
         kWarning, "'B' reports NIX"},
        {[](ContentFacts& f) {
             f.catalog.root->children[2].children[0].attributes["id"] = "INK_STATSU";
         },
         kError, "INK_STATSU, which is not a billboard. Did you mean INK_STATUS?"},
        {[](ContentFacts& f) { f.rules.root->children[0].attributes["result"] = "X"; }, kError,
         "rule 1: X is neither a category nor a billboard"},
        {[](ContentFacts& f) { f.rules.root->children[0].children = {node("inc", {})}; }, kError,
         "rule 1: unknown condition <inc>"},
        {[](ContentFacts& f) {
             f.catalog = {{}, "line 3: no end"};
         },
         kError, "catalog.xml: line 3: no end"},
        {[](ContentFacts& f) { f.pages[0] = page("a.jbb", "", "no title"); }, kError,
         "a line before the first empty line has no \"=\""},
        {[](ContentFacts& f) { f.pages[0] = page("a.jbb", "", "title=A\nbutton=&Now|NEXT|0"); },
         kWarning, "the access key of \"&Now\""},
        {[](ContentFacts& f) { f.pages[0].head["theme"] = "red"; }, kWarning,
         "there is no theme 'red'"},
        {[](ContentFacts& f) { f.pages[0] = page("a.jbb", "", "title=A\npicture=p.bmp"); },
         kWarning, "there is no picture Scripts\\p.bmp"},
        {[](ContentFacts& f) { f.pages[2].language = "xx"; }, kWarning,
         "the window has no texts in 'xx'"},
        {[](ContentFacts& f) { f.languages["de"].problem = "line 3 has no text"; }, kError,
         "jswtexts.de.txt: line 3 has no text"},
        {[](ContentFacts& f) { f.cartridges["cartridges.txt"] = "line 1 has no text"; }, kError,
         "cartridges.txt: line 1 has no text"},
        {[](ContentFacts& f) { f.languages["de"].sections["prompt"]["x"] = "y"; }, kWarning,
         "there is no text prompt.x"},
        {[](ContentFacts& f) { f.languages["de"].sections["window"]["closeYes"] = "&OK"; },
         kWarning, "\"&Offen lassen\" has no access key of its own"},
        {[](ContentFacts& f) { f.pages[2] = page("b.jbb", "de", "title=B"); }, kWarning,
         "have other actions than those of b.jbb"},
    };
    for (const ContentRow& row : rows) {
        ContentFacts facts = goodContent();
        row.spoil(facts);
        Report report;
        judgeContent(facts, report);
        EXPECT_TRUE(has(report, row.severity, row.finding)) << row.finding << "\n"
                                                            << asText(report);
    }
    Report good;
    judgeContent(goodContent(), good);
    EXPECT_EQ(good.count(kError) + good.count(kWarning), 0U) << asText(good);
    EXPECT_TRUE(has(good, Severity::note, "a.jbb: not in: de"));
    EXPECT_FALSE(has(good, Severity::note, "stay English")) << asText(good);
    EXPECT_TRUE(window::clashingKeys({}).empty());
}

}  // namespace
}  // namespace jsw::ctl
