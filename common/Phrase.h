/**
 * @file Phrase.h
 * Puts values into texts. No Windows in it.
 */
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace jsw::common {

/** Puts the values in the places of {0}, {1}, ... of the pattern. */
[[nodiscard]] std::string fillIn(std::string_view pattern,
                                 std::initializer_list<std::string_view> values);

/** The text for one or for another number: "1 page", "2 pages". */
[[nodiscard]] inline const std::string& plural(std::int64_t count, const std::string& one,
                                               const std::string& other) {
    return count == 1 ? one : other;
}

/** The number in groups of three digits: 12,345; four digits stay together. */
[[nodiscard]] std::string grouped(std::int64_t number, std::string_view separator);

}  // namespace jsw::common
