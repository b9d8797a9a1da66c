/**
 * @file Language.h
 * Texts by language: each language of a module is one table in one source file, which registers
 * itself. Needs no Windows.
 */
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace jsw::ui {

/** The primary part of a Windows language id. */
[[nodiscard]] constexpr std::uint16_t primaryLanguage(std::uint16_t languageId) {
    return languageId & 0x3FFU;
}

inline constexpr std::uint16_t kEnglish = 0x09;

/**
 * One language's table of texts. To add a language, define one with static lifetime in a source
 * file:
 *
 *     const Language<Strings> german(0x07, "de", {...});
 */
template <typename Strings>
class Language {
  public:
    /**
     * @param primaryId primary part of the Windows language id
     * @param code the language's two letters, lower case
     */
    Language(std::uint16_t primaryId, const char* code, const Strings& strings)
        : primaryId_(primaryId), code_(code), strings_(strings), next_(first_) {
        first_ = this;
    }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

    /** The language with this id, whatever the country; English if there is none. */
    [[nodiscard]] static const Language& choose(std::uint16_t languageId) {
        const Language* chosen = first_;
        for (const Language* language = first_; language; language = language->next_) {
            if (language->primaryId_ == primaryLanguage(languageId)) return *language;
            if (language->primaryId_ == kEnglish) chosen = language;
        }
        return *chosen;  // NOLINT(clang-analyzer-core.uninitialized.UndefReturn): English exists
    }
    /** The language with this code; null if there is none. */
    [[nodiscard]] static const Language* find(std::string_view code) {
        const Language* language = first_;
        while (language && code != language->code_) language = language->next_;
        return language;
    }
    [[nodiscard]] static const Language* first() { return first_; }
    [[nodiscard]] const Language* next() const { return next_; }

    [[nodiscard]] const char* code() const { return code_; }
    [[nodiscard]] const Strings& strings() const { return strings_; }

  private:
    static inline const Language* first_ = nullptr;

    std::uint16_t primaryId_;
    const char* code_;
    Strings strings_;
    const Language* next_;
};

/** A text that depends on a number: "1 page", "2 pages". */
struct Plural {
    const char* one;
    const char* other;
    [[nodiscard]] const char* form(std::int64_t count) const { return count == 1 ? one : other; }
};

/** Replaces {0}, {1}, ... in the pattern by the values. */
[[nodiscard]] std::string fillIn(std::string_view pattern,
                                 std::initializer_list<std::string_view> values);

/** The number in groups of three digits: 12,345; four digits are not separated. */
[[nodiscard]] std::string grouped(std::int64_t number, std::string_view separator);

}  // namespace jsw::ui
