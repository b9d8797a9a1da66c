#pragma once

#include <span>
#include <string_view>

namespace jsw::ctl::log {

/// What a line of trouble means for the user of a job.
enum class Severity {
    note,     ///< worth knowing
    hinders,  ///< something is missing, the job goes on without it
    stops,    ///< something that a user or an administrator expects does not happen at all
};

/// A text of the log that tells of trouble, and what to do about it.
struct KnownText {
    std::string_view text;  ///< occurs in the line, letter for letter
    Severity severity;
    std::string_view symptom;  ///< what is seen
    std::string_view cause;
    std::string_view remedy;
};

/// All of them, those that say more before those that say less.
std::span<const KnownText> knownTexts();

/// The entry for the text of a line; null when the line tells of no trouble.
const KnownText* findKnownText(std::string_view text);

/// Whom a line with a known text is about, such as the file of "Unable to load DLL=": what stands
/// behind the text, without the reason. Lines about different ones are different troubles.
std::string_view subjectOf(const KnownText& known, std::string_view text);

}  // namespace jsw::ctl::log
