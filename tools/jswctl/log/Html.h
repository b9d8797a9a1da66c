#pragma once

#include <string>
#include <string_view>

/// Small helpers for pages and pictures made of text.
namespace jsw::ctl::log::html {

/// The text as content or attribute value; control characters become question marks.
std::string escaped(std::string_view text);

/// With one decimal, as pictures need it: "12.5".
std::string number(double value);

/// " name=\"value\"", the value escaped.
std::string attribute(std::string_view name, std::string_view value);
std::string attribute(std::string_view name, double value);

}  // namespace jsw::ctl::log::html
