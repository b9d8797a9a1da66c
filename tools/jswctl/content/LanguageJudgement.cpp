#include "tools/jswctl/content/LanguageJudgement.h"

#include "PublicLib/text/Text.h"
#include "samples/updater/UpdaterTexts.h"
#include "window/prompt/PromptTexts.h"
#include "window/view/AccessKeys.h"

#include <set>

namespace jsw::ctl {

namespace {

/// Judges one section; what is known of it is taken out of the rest.
template <typename Texts>
void judgeSection(const std::string& name, const common::LanguageFile& file,
                  std::set<std::string, std::less<>>& rest, Report& report) {
    Texts texts;
    const auto known = texts.byName();
    const std::string problem = common::takeTexts(file, Texts::kSection, known);
    if (!problem.empty()) report.error(name, problem, "The window stays in English until then");
    const auto section = file.sections.find(Texts::kSection);
    const auto has = [&](std::string_view text) {
        return section != file.sections.end() && section->second.contains(text);
    };
    std::size_t missing = 0;
    for (const auto& entry : known) {
        missing += has(entry.name) ? 0 : 1;
        rest.erase(concat(Texts::kSection, ".", entry.name));
    }
    if (missing > 0) {
        report.note(name, concat(missing, " texts of [", Texts::kSection, "] stay English"));
    }
}

}  // namespace

void judgeLanguage(const std::string& code, const common::LanguageFile& file, Report& report) {
    const std::string name = concat("jswtexts.", code, ".txt");
    if (!file.problem.empty()) {
        report.error(name, file.problem, "See docs/translating.md");
        return;
    }
    std::set<std::string, std::less<>> rest;
    for (const auto& [section, texts] : file.sections) {
        for (const auto& [text, words] : texts) rest.insert(concat(section, ".", text));
    }
    judgeSection<window::WindowTexts>(name, file, rest, report);
    judgeSection<window::PromptTexts>(name, file, rest, report);
    judgeSection<sample::UpdaterTexts>(name, file, rest, report);
    for (const std::string& unknown : rest) {
        report.warn(name, concat("there is no text ", unknown), "See docs/translating.md");
    }
    for (const std::string& clash : window::clashingKeys(windowTextsOf(file))) {
        report.warn(name, clash, "Mark another letter");
    }
}

window::WindowTexts windowTextsOf(const common::LanguageFile& file) {
    window::WindowTexts texts;
    static_cast<void>(common::takeTexts(file, window::WindowTexts::kSection, texts.byName()));
    return texts;
}

}  // namespace jsw::ctl
