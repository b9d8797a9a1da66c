#pragma once

#include "jsw/settings/macros/TagScanner.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace jsw::test {

/// Values of tags by name; every other tag stays.
struct TagValues : ISymbolicResolverHandler {
    std::map<std::string, std::string, std::less<>> values;
    std::size_t asked = 0;

    std::optional<std::string> resolveTag(std::string_view /*tagText*/,
                                          std::string_view tagName) override {
        ++asked;
        const auto found = values.find(tagName);
        if (found == values.end()) return std::nullopt;
        return found->second;
    }
};

/// The simplest replacement: one text, edited in place, searched again from the last tag's
/// position. Nothing if it exceeds the given steps or characters.
inline std::optional<std::string> replaceNaively(std::string text,
                                                 ISymbolicResolverHandler& handler,
                                                 std::size_t maxSteps, std::size_t maxSize) {
    std::size_t position = 0;
    for (std::size_t step = 0; step < maxSteps && text.size() < maxSize; ++step) {
        const std::size_t open = text.find("_^", position);
        if (open == std::string::npos) return text;
        const std::size_t close = text.find("^_", open + 2);
        if (close == std::string::npos) return text;
        const std::string tag = text.substr(open, close + 2 - open);
        const std::string value =
            handler.resolveTag(tag, tag.substr(2, tag.size() - 4)).value_or(tag);
        position = value == tag ? open + 1 : open;
        text.replace(open, tag.size(), value);
    }
    return std::nullopt;
}

}  // namespace jsw::test
