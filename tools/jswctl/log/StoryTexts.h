#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// A line of the log that says what a job did, and how that is said in a report.
struct StoryText {
    std::string_view pattern;   ///< of the line's text, with "{}" for what varies
    std::string_view sentence;  ///< with "{1}", "{2}", … for what stood there
};

std::span<const StoryText> storyTexts();

/// The sentence for the text of a line; nothing when it is no part of a job's story.
std::optional<std::string> tell(std::string_view text);

}  // namespace jsw::ctl::log
