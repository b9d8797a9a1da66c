#pragma once

#include <span>
#include <string_view>

namespace jsw::ctl::log {

/// The effect of a problem on a job.
enum class Impact {
    note,     ///< worth knowing
    hinders,  ///< something is missing, the job goes on without it
    stops,    ///< something that a user or an administrator expects does not happen
};

/// A log text that reports a problem, with cause and remedy.
struct KnownText {
    std::string_view text;  ///< occurs in the line, letter for letter
    Impact impact;
    std::string_view symptom;  ///< the visible effect
    std::string_view cause;
    std::string_view remedy;
};

/// All of them, specific ones before general ones.
std::span<const KnownText> knownTexts();

/// The entry for a line's text; null if the line reports no problem.
const KnownText* findKnownText(std::string_view text);

/// The subject of a line with a known text, such as the file of "Unable to load DLL=": the part
/// after the text, without the reason. Lines with different subjects are different problems.
std::string_view subjectOf(const KnownText& known, std::string_view text);

}  // namespace jsw::ctl::log
