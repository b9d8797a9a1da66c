/**
 * @file Language.h
 * The user's language, and the texts of a module in it. Any thread may call these functions.
 */
#pragma once

#include "common/LanguageFile.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::common {

/**
 * Codes of the user's language, the closest first: "de-AT", "de". JSW_WINDOW_LANGUAGE in the
 * environment, for those who write pages or texts, comes in its place.
 */
[[nodiscard]] std::vector<std::string> userLanguages();

/**
 * A language's file, "jswtexts.de.txt" beside this module; nothing when there is none. Malformed,
 * it has a problem.
 */
[[nodiscard]] std::optional<LanguageFile> readLanguage(const std::string& code);

/**
 * Replaces texts by those of the first of these languages that has a file. A malformed one replaces
 * none, and the debugger output says why.
 */
void translate(const std::vector<std::string>& languages, std::string_view section,
               const std::vector<NamedText>& texts);

/** A module's texts in the first of these languages that has a file; else in English. */
template <typename Texts>
[[nodiscard]] Texts translated(const std::vector<std::string>& languages) {
    Texts texts;
    translate(languages, Texts::kSection, texts.byName());
    return texts;
}

}  // namespace jsw::common
