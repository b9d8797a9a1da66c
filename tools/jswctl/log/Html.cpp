#include "tools/jswctl/log/Html.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Words.h"

#include <cstdio>

namespace jsw::ctl::log::html {

std::string escaped(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char letter : printable(text)) {
        switch (letter) {
            case '&':
                result += "&amp;";
                break;
            case '<':
                result += "&lt;";
                break;
            case '>':
                result += "&gt;";
                break;
            case '"':
                result += "&quot;";
                break;
            default:
                result += letter;
        }
    }
    return result;
}

std::string number(double value) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.1f", value);
    return text;
}

std::string attribute(std::string_view name, std::string_view value) {
    return concat(" ", name, "=\"", escaped(value), "\"");
}

std::string attribute(std::string_view name, double value) {
    return attribute(name, number(value));
}

}  // namespace jsw::ctl::log::html
