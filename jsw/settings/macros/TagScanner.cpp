#include "jsw/settings/macros/TagScanner.h"

#include <algorithm>

namespace jsw {

namespace {
// Without letters, so letter case does not matter.
constexpr std::string_view kOpen = "_^";
constexpr std::string_view kClose = "^_";
}  // namespace

TagResult replaceTags(std::string text, ISymbolicResolverHandler* handler,
                      const TagLimits& limits) {
    const std::size_t maxSize = text.size() + limits.growth;
    std::size_t nested = 0;
    std::size_t original = text.size();  // characters at the end that are not part of a value
    std::size_t open = 0;
    while (handler != nullptr && (open = text.find(kOpen, open)) != std::string::npos) {
        const std::size_t close = text.find(kClose, open + kOpen.size());
        if (close == std::string::npos) break;
        const std::size_t behind = close + kClose.size();
        const std::string_view tag = std::string_view(text).substr(open, behind - open);
        const std::string_view name = tag.substr(kOpen.size(), close - open - kOpen.size());
        const std::optional<std::string> value = handler->resolveTag(tag, name);
        if (!value || *value == tag) {
            ++open;
            continue;
        }
        const std::size_t left = text.size() - behind;
        if (left >= original && ++nested > limits.nestedReplacements) return {text, false};
        if (text.size() - tag.size() + value->size() > maxSize) return {text, false};
        original = std::min(original, left);
        text.replace(open, tag.size(), *value);
    }
    return {std::move(text)};
}

}  // namespace jsw
