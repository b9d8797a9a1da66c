#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// The texts at a pattern's placeholders "{}", in order; unused ones are empty.
using Captures = std::array<std::string_view, 10>;

/// Whether a text matches a pattern such as "Loading view DLL, filename={}." from beginning to end.
/// A part between two placeholders matches its first occurrence, the part after the last one the
/// end of the text.
bool matches(std::string_view pattern, std::string_view text, Captures& captures);

/// The sentence with "{1}" to "{9}" replaced by the captures.
std::string fillIn(std::string_view sentence, const Captures& captures);

}  // namespace jsw::ctl::log
