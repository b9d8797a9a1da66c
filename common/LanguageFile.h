/**
 * @file LanguageFile.h
 * The texts of a module: English ones that are built in, and those of a language file in their
 * place (docs/translating.md). No Windows in it.
 *
 * A module lists its texts once, name and English, and gets a struct of strings:
 *
 *     #define JSW_PROMPT_TEXTS(TEXT) \
 *         TEXT(title, "Printing: your help is needed") \
 *         TEXT(closeCover, "Close the cover.")
 *     JSW_TEXTS(PromptTexts, "prompt", JSW_PROMPT_TEXTS)
 */
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::common {

/** A file that exceeds one of these is refused. In bytes. */
inline constexpr std::size_t kMaxLanguageFile = 65536;
inline constexpr std::size_t kMaxTextLength = 600;

/** A text of a module, by its name in language files. */
struct NamedText {
    std::string_view name;
    std::string* text;
};

/** The texts of one section of a language file, by their names. */
using TextSection = std::map<std::string, std::string, std::less<>>;

/** What a language file says. */
struct LanguageFile {
    std::map<std::string, TextSection, std::less<>> sections;
    std::string problem; /**< what is wrong and in which line; empty: nothing */
};

/** Reads the bytes of a language file (UTF-8). */
[[nodiscard]] LanguageFile parseLanguageFile(std::string_view bytes);

/**
 * Puts the section's texts in the place of those with the same names; others stay.
 * @return what is wrong with one of them, and then none is replaced; empty when all is well
 */
[[nodiscard]] std::string takeTexts(const LanguageFile& file, std::string_view section,
                                    const std::vector<NamedText>& texts);

#define JSW_TEXT_MEMBER(name, english) std::string name = english;
#define JSW_TEXT_ENTRY(name, english) {#name, &name},

/** Defines a struct of the texts in a list, in English, that can be replaced by their names. */
#define JSW_TEXTS(Type, section, LIST)                                 \
    struct Type {                                                      \
        static constexpr const char* kSection = section;               \
        LIST(JSW_TEXT_MEMBER)                                          \
        [[nodiscard]] std::vector<::jsw::common::NamedText> byName() { \
            return {LIST(JSW_TEXT_ENTRY)};                             \
        }                                                              \
    };

}  // namespace jsw::common
