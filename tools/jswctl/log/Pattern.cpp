#include "tools/jswctl/log/Pattern.h"

namespace jsw::ctl::log {

namespace {

constexpr std::string_view kPlace = "{}";

}  // namespace

bool matches(std::string_view pattern, std::string_view text, Captures& captures) {
    std::size_t place = pattern.find(kPlace);
    if (!text.starts_with(pattern.substr(0, place))) return false;
    if (place == std::string_view::npos) return text.size() == pattern.size();
    captures.fill({});
    text.remove_prefix(place);
    for (std::size_t count = 0; count < captures.size(); ++count) {
        pattern.remove_prefix(place + kPlace.size());
        place = pattern.find(kPlace);
        const std::string_view literal = pattern.substr(0, place);
        if (place == std::string_view::npos) {
            if (!text.ends_with(literal)) return false;
            captures[count] = text.substr(0, text.size() - literal.size());
            return true;
        }
        const std::size_t found = text.find(literal);
        if (found == std::string_view::npos) return false;
        captures[count] = text.substr(0, found);
        text.remove_prefix(found + literal.size());
    }
    return false;  // more placeholders than captures
}

std::string fillIn(std::string_view sentence, const Captures& captures) {
    std::string result;
    for (std::size_t i = 0; i < sentence.size(); ++i) {
        const bool isPlace = sentence[i] == '{' && i + 2 < sentence.size() &&
                             sentence[i + 1] >= '1' && sentence[i + 1] <= '9' &&
                             sentence[i + 2] == '}';
        if (!isPlace) {
            result += sentence[i];
            continue;
        }
        result += captures[static_cast<std::size_t>(sentence[i + 1] - '1')];
        i += 2;
    }
    return result;
}

}  // namespace jsw::ctl::log
