#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// What stood at the places "{}" of a pattern, in their order; the places beyond the last are
/// empty.
using Captures = std::array<std::string_view, 10>;

/// Whether a text is of the form of a pattern such as "Loading view DLL, filename={}.": what is
/// outside "{}" stands in it letter for letter, from its beginning to its end. A part between two
/// places is taken where it occurs first, the part behind the last place at the end of the text.
bool matches(std::string_view pattern, std::string_view text, Captures& captures);

/// The sentence with "{1}" to "{9}" replaced by the captures.
std::string fillIn(std::string_view sentence, const Captures& captures);

}  // namespace jsw::ctl::log
