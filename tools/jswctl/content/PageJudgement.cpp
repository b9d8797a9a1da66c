#include "tools/jswctl/content/PageJudgement.h"

#include "PublicLib/text/Text.h"
#include "window/view/Strings.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace jsw::ctl {

namespace {

using view::ContentButton;

/// The window's texts in a language, or in English.
const view::Strings& stringsOf(const std::string& code) {
    const view::Language* const language = view::Language::find(code);
    return language != nullptr ? language->strings() : stringsOf("en");
}

/// The access key of a label, in lower case; 0 if it has none.
char accessKey(std::string_view label) {
    while (!label.empty()) {
        const bool isMark = label.size() > 1 && label[0] == '&';
        if (isMark && label[1] != '&') {
            return static_cast<char>(std::tolower(static_cast<unsigned char>(label[1])));
        }
        label.remove_prefix(isMark ? 2 : 1);
    }
    return 0;
}

void judgeAccessKeys(const ContentPage& page, const view::Strings& strings, Report& report) {
    std::string taken;
    for (const char* label :
         {strings.previous, strings.current, strings.next, strings.inkStatus,
          strings.updateAutomatically, strings.specialMessages, strings.cancel}) {
        taken += accessKey(label);
    }
    for (const ContentButton& button : page.parsed.page.buttons) {
        const char key = accessKey(button.label);
        if (key == 0) continue;
        if (taken.find(key) != std::string::npos) {
            report.warn(page.fileName,
                        concat("the access key of '", button.label,
                               "' is used by the window or another button"),
                        concat("Choose a letter other than ", taken));
        }
        taken += key;
    }
}

/// Names that the parser replaces or ignores.
void judgeNames(const ContentPage& page, const ContentFacts& facts, Report& report) {
    const auto valueOf = [&](const char* key) {
        const auto entry = page.head.find(key);
        return entry == page.head.end() ? std::string() : entry->second;
    };
    const view::Page& content = page.parsed.page;
    const std::string theme = valueOf("theme");
    if (!theme.empty() && content.theme == view::Theme::blue &&
        !equalsIgnoringCase(theme, "blue")) {
        report.warn(page.fileName, concat("there is no theme '", theme, "'; the page is blue"),
                    "The themes are blue, green, amber, violet");
    }
    const std::string picture = valueOf("picture");
    if (!picture.empty() && content.picture == view::Picture::none) {
        report.warn(page.fileName, concat("there is no picture '", picture, "'"),
                    "Use printer, drop, bulb, ink or a .bmp file beside the page");
    }
    if (content.picture != view::Picture::file) return;
    const auto file = facts.pictures.find(toLower(content.pictureFile));
    if (file == facts.pictures.end()) {
        report.warn(page.fileName, concat("there is no picture Scripts\\", content.pictureFile),
                    "Put the file there");
    } else if (!file->second) {
        report.warn(page.fileName,
                    concat("the picture ", content.pictureFile, " cannot be read or is too large"),
                    "Use an uncompressed .bmp file of at most 2000 by 2000 pixels");
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
    if (view::Language::find(page.language) == nullptr) {
        report.warn(page.fileName, concat("the window has no language '", page.language, "'"),
                    "The page is never shown");
    }
    if (original == nullptr) {
        report.warn(page.fileName, concat("there is no ", page.name, " for the other languages"),
                    "Add one");
    } else if (original->parsed.problem == view::Problem::none &&
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
    for (const auto* language = view::Language::first(); language; language = language->next()) {
        const std::string code = language->code();
        if (code == "en" || findPage(facts, page.name, code) != nullptr) continue;
        missing += concat(missing.empty() ? "" : ", ", code);
    }
    if (!missing.empty()) report.note(page.fileName, concat("not in: ", missing));
}

}  // namespace

void judgePage(const ContentPage& page, const ContentFacts& facts, Report& report) {
    if (page.parsed.problem != view::Problem::none) {
        report.error(page.fileName,
                     stringsOf("en").problems[static_cast<std::size_t>(page.parsed.problem)],
                     "See docs/billboard-format.md");
        return;
    }
    judgeNames(page, facts, report);
    judgeAccessKeys(page, stringsOf(page.language), report);
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
