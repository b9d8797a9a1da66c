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

    /// The text that replaces a tag; nothing: the tag stays.
    /// @param tagText  the whole tag with its delimiters
    /// @param tagName  the text between the delimiters
    virtual std::optional<std::string> resolveTag(std::string_view tagText,
                                                  std::string_view tagName) = 0;
};

/// Limits of replacing, because a value may lead back to itself.
struct TagLimits {
    /// Replacements of tags that are entirely inside values. The text's length limits the others.
    std::size_t nestedReplacements = 1000;
    /// Characters by which the result may exceed the text.
    std::size_t growth = std::size_t{16} * 1024 * 1024;
};

struct TagResult {
    std::string text;
    bool complete = true;  ///< false: a limit was reached, the tags from there on remain
};

/// Replaces the tags in a text, "_^name^_", by their values. A value may contain tags, or complete
/// one together with the text after it; these are replaced, too. Meant for texts of an address's
/// length: each replacement moves the rest of the text.
/// @param handler  null: the text is returned unchanged
TagResult replaceTags(std::string text, ISymbolicResolverHandler* handler,
                      const TagLimits& limits = {});

}  // namespace jsw
