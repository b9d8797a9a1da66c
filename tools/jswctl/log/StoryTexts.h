#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// A log line that says what a job did, and the report's sentence for it.
struct StoryText {
    std::string_view pattern;   ///< of the line's text, with "{}" for variable parts
    std::string_view sentence;  ///< with "{1}", "{2}", … for these parts
};

std::span<const StoryText> storyTexts();

/// The sentence for a line's text; nothing if the line is not part of a job's story.
std::optional<std::string> tell(std::string_view text);

}  // namespace jsw::ctl::log
