#include "PublicLib/ini/IniText.h"

#include <cstdlib>
#include <limits>

namespace jsw {

namespace {

IniValueType typeNamed(std::string_view name) {
    if (name == "string") return IniValueType::string;
    if (name == "dword") return IniValueType::dword;
    return IniValueType::unknown;
}

}  // namespace

IniTypedValue splitTypedValue(std::string_view value) {
    const std::size_t colon = value.find(':');
    if (colon == std::string_view::npos || colon == 0) return {};
    return {true, typeNamed(value.substr(0, colon)), std::string(value.substr(colon + 1))};
}

std::uint32_t leadingNumber(const std::string& text) {
    using Limits = std::numeric_limits<std::int32_t>;
    // Not strtol(), which depends on the size of a long.
    const long long number = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<std::uint32_t>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

std::vector<std::string> splitNameList(std::string_view list) {
    std::vector<std::string> names;
    while (!list.empty() && list.front() != '\0') {
        const std::string_view name = list.substr(0, list.find('\0'));
        names.emplace_back(name);
        list.remove_prefix(name.size());
        if (!list.empty()) list.remove_prefix(1);
    }
    return names;
}

}  // namespace jsw
