#pragma once

#include <jsw/types.h>

#include <cstdint>
#include <string>

namespace jsw {

/// A print job as the driver describes it.
struct Job {
    std::string friendlyName;
    std::string jobName;
    std::uint32_t jobType;
    std::uint32_t currentPage;
    std::uint32_t totalPages;  ///< -1 or -2 if unknown
    std::uint32_t currentCopy;
    std::uint32_t totalCopies;
    const InkInfo* inkInfo;  ///< for the view: the driver's, or a substitute if it passed null
    InkInfo ink;             ///< a copy of it; -1: unknown
    std::uint32_t portType;
    std::uint32_t secondsRemaining;
};

}  // namespace jsw
