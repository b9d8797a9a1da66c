#pragma once

#include <string>
#include <string_view>

namespace jsw::ctl {

/// Converts from the system's code page to UTF-8, for pages and JSON; invalid characters become a
/// replacement character.
std::string toUtf8(std::string_view text);

}  // namespace jsw::ctl
