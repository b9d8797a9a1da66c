#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace jsw {

/// Knows the values of tags.
class ISymbolicResolverHandler {
  public:
    virtual ~ISymbolicResolverHandler() = default;

    /// The text that replaces a tag, or the tag text itself: then the tag stays as it is. The
    /// answer must stay valid until the next call. It is a view so that leaving a long tag costs
    /// nothing.
    /// @param tagText  the whole tag with its delimiters; valid during the call
    /// @param tagName  what lies between the delimiters
    virtual std::string_view resolveTag(std::string_view tagText, std::string_view tagName) = 0;
};

/// How a tag looks. Both delimiters have at least one character.
struct TagSyntax {
    bool ignoreCase = true;  ///< of ASCII letters in the delimiters
    std::string_view open = "_^";
    std::string_view close = "^_";
};

/// Where replacing ends, because a value may lead back to itself.
struct TagLimits {
    /// Replacements of tags that lie wholly in values. Those that use up characters of the text
    /// are limited by its length.
    std::size_t nestedReplacements = 1000;
    /// Characters by which the result may be longer than the text.
    std::size_t growth = std::size_t{16} * 1024 * 1024;
};

/// Replaces the tags in a text by their values. A value may contain tags, or complete one together
/// with the text that follows it; those are replaced too. Takes time in proportion to the length of
/// the text and of the values, whatever they contain.
class TagScanner {
  public:
    struct Result {
        std::string text;
        bool complete = true;  ///< false: a limit was reached, the tags from there on remain
    };

    /// @param handler  without one every text stays as it is
    explicit TagScanner(ISymbolicResolverHandler* handler, const TagSyntax& syntax = {},
                        const TagLimits& limits = {})
        : syntax_(syntax), handler_(handler), limits_(limits) {}

    Result replaceTags(std::string_view text) const;

  private:
    TagSyntax syntax_;
    ISymbolicResolverHandler* handler_;
    TagLimits limits_;
};

}  // namespace jsw
