#pragma once

namespace jsw::ctl {

/// Where the value that a job goes by comes from.
enum class Source {
    stored,
    fallback,   ///< missing, and there is a default
    missing,    ///< and there is no default
    wrongType,  ///< stored, but as another type: the job takes the default
    unreadable,
};

const char* sourceName(Source source);

}  // namespace jsw::ctl
