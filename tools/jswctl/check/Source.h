#pragma once

namespace jsw::ctl {

/// Where the value that a job goes by comes from.
enum class Source {
    stored,
    inFile,     ///< of a settings file that is not installed yet
    fallback,   ///< missing, and there is a default
    missing,    ///< and there is no default
    wrongType,  ///< stored, but as another type: the job takes the default
    unreadable,
};

const char* sourceName(Source source);

/// Whether there is a value, in the store or in the file that will be installed in it.
constexpr bool isSet(Source source) {
    return source == Source::stored || source == Source::inFile;
}

}  // namespace jsw::ctl
