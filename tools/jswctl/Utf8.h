#pragma once

#include <string>
#include <string_view>

namespace jsw::ctl {

/// A text of the system's code page in UTF-8, as pages and JSON need it; what is no character of
/// the code page becomes a replacement sign.
std::string toUtf8(std::string_view text);

}  // namespace jsw::ctl
