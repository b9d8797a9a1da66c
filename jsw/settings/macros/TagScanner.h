#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace jsw {

/// Knows the values of tags.
class ISymbolicResolverHandler {
  public:
    virtual ~ISymbolicResolverHandler() = default;

    /// The text that replaces a tag; nothing: the tag stays as it is.
    /// @param tagText  the whole tag with its delimiters
    /// @param tagName  what lies between the delimiters
    virtual std::optional<std::string> resolveTag(std::string_view tagText,
                                                  std::string_view tagName) = 0;
};

/// Where replacing ends, because a value may lead back to itself.
struct TagLimits {
    /// Replacements of tags that lie wholly in values. Those that use up characters of the text
    /// are limited by its length.
    std::size_t nestedReplacements = 1000;
    /// Characters by which the result may be longer than the text.
    std::size_t growth = std::size_t{16} * 1024 * 1024;
};

struct TagResult {
    std::string text;
    bool complete = true;  ///< false: a limit was reached, the tags from there on remain
};

/// Replaces the tags in a text, "_^name^_", by their values. A value may contain tags, or complete
/// one together with the text that follows it; those are replaced too. For texts of the length of
/// an address: each replacement moves what follows it.
/// @param handler  null: the text stays as it is
TagResult replaceTags(std::string text, ISymbolicResolverHandler* handler,
                      const TagLimits& limits = {});

}  // namespace jsw
