#include "tools/jswctl/content/PageJudgement.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/content/LanguageJudgement.h"
#include "window/view/AccessKeys.h"
#include "window/view/WindowContent.h"

#include <algorithm>
#include <iterator>

namespace jsw::ctl {

namespace {

using window::ContentButton;

/// The window's texts beside a page in this language.
window::WindowTexts textsBeside(const std::string& language, const ContentFacts& facts) {
    const auto file = facts.languages.find(language);
    return file == facts.languages.end() ? window::WindowTexts() : windowTextsOf(file->second);
}

void judgeAccessKeys(const ContentPage& page, const ContentFacts& facts, Report& report) {
    window::Page shown = page.parsed.page;
    for (const std::string& clash :
         window::giveAccessKeys(shown, textsBeside(page.language, facts))) {
        report.warn(page.fileName, clash, "Mark another letter");
    }
}

/// Names that the parser replaces or ignores.
void judgeNames(const ContentPage& page, const ContentFacts& facts, Report& report) {
    const auto valueOf = [&](const char* key) {
        const auto entry = page.head.find(key);
        return entry == page.head.end() ? std::string() : entry->second;
    };
    const window::Page& content = page.parsed.page;
    const std::string theme = valueOf("theme");
    if (!theme.empty() && content.theme == window::Theme::blue &&
        !equalsIgnoringCase(theme, "blue")) {
        report.warn(page.fileName, concat("there is no theme '", theme, "'; the page is blue"),
                    "The themes are blue, green, amber, violet");
    }
    const std::string picture = valueOf("picture");
    if (!picture.empty() && content.picture == window::Picture::none) {
        report.warn(page.fileName, concat("there is no picture '", picture, "'"),
                    "Use printer, drop, bulb, ink or a .bmp or .png file beside the page");
    }
    if (content.picture != window::Picture::file) return;
    const auto file = facts.pictures.find(toLower(content.pictureFile));
    if (file == facts.pictures.end()) {
        report.warn(page.fileName, concat("there is no picture Scripts\\", content.pictureFile),
                    "Put the file there");
    } else if (!file->second) {
        report.warn(page.fileName,
                    concat("the picture ", content.pictureFile, " cannot be read or is too large"),
                    "Use a .bmp or .png file of at most 2000 by 2000 pixels");
    }
}

bool sameActions(const std::vector<ContentButton>& left, const std::vector<ContentButton>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const ContentButton& one, const ContentButton& other) {
                          return one.action == other.action && one.actionId == other.actionId;
                      });
}

const ContentPage* findPage(const ContentFacts& facts, const std::string& name,
                            const std::string& language) {
    const auto page =
        std::find_if(facts.pages.begin(), facts.pages.end(), [&](const ContentPage& each) {
            return equalsIgnoringCase(each.name, name) && each.language == language;
        });
    return page == facts.pages.end() ? nullptr : &*page;
}

void judgeTranslation(const ContentPage& page, const ContentFacts& facts, Report& report) {
    const ContentPage* const original = findPage(facts, page.name, "");
    if (!facts.languages.contains(page.language)) {
        report.warn(page.fileName,
                    concat("the window has no texts in '", page.language, "': it stays English"),
                    "See docs/translating.md");
    }
    if (original == nullptr) {
        report.warn(page.fileName, concat("there is no ", page.name, " for the other languages"),
                    "Add one");
    } else if (original->parsed.problem == window::Problem::none &&
               !(sameActions(original->parsed.page.buttons, page.parsed.page.buttons) &&
                 sameActions(original->parsed.page.links, page.parsed.page.links))) {
        report.warn(page.fileName,
                    concat("its buttons or links have other actions than those of ", page.name),
                    "Give both pages the same actions in the same order");
    }
}

/// Reports the languages that have no page of their own.
void tellMissingLanguages(const ContentPage& page, const ContentFacts& facts, Report& report) {
    std::string missing;
    for (const auto& [code, file] : facts.languages) {
        if (findPage(facts, page.name, code) != nullptr) continue;
        missing += concat(missing.empty() ? "" : ", ", code);
    }
    if (!missing.empty()) report.note(page.fileName, concat("not in: ", missing));
}

}  // namespace

void judgePage(const ContentPage& page, const ContentFacts& facts, Report& report) {
    if (page.parsed.problem != window::Problem::none) {
        report.error(page.fileName, window::problemText(page.parsed.problem, window::WindowTexts()),
                     "See docs/billboard-format.md");
        return;
    }
    judgeNames(page, facts, report);
    judgeAccessKeys(page, facts, report);
    if (page.language.empty()) {
        tellMissingLanguages(page, facts, report);
    } else {
        judgeTranslation(page, facts, report);
    }
}

void judgeActions(const ContentPage& page, const std::string& billboard, std::size_t actions,
                  Report& report) {
    constexpr const char* kKnown[] = {"NEXT", "PREVIOUS", "CURRENT", "INK_STATUS"};
    const auto judge = [&](const ContentButton& button) {
        if (equalsIgnoringCase(button.action, "LAUNCH_URL") ||
            equalsIgnoringCase(button.action, "LAUNCH_APP")) {
            if (static_cast<std::size_t>(button.actionId) < actions) return;
            report.error(page.fileName,
                         concat("'", button.label, "' uses action ", button.actionId, ", but ",
                                billboard, " has ", actions),
                         "Numbers count from 0; add the action to the catalog");
        } else if (std::none_of(std::begin(kKnown), std::end(kKnown), [&](const char* known) {
                       return equalsIgnoringCase(button.action, known);
                   })) {
            report.warn(
                page.fileName,
                concat("'", button.label, "' reports ", button.action, ", which does nothing"),
                "See docs/billboard-format.md for the actions");
        }
    };
    for (const ContentButton& button : page.parsed.page.buttons) judge(button);
    for (const ContentButton& link : page.parsed.page.links) judge(link);
}

}  // namespace jsw::ctl
