#pragma once

namespace jsw::ctl {

/// The source of the value that a job uses.
enum class Source {
    stored,
    inFile,     ///< in a settings file that is not installed yet
    fallback,   ///< missing, with a default
    missing,    ///< without a default
    wrongType,  ///< stored with another type: the job uses the default
    unreadable,
};

const char* sourceName(Source source);

/// Whether there is a value, in the store or in the file to be installed.
constexpr bool isSet(Source source) {
    return source == Source::stored || source == Source::inFile;
}

}  // namespace jsw::ctl
