#pragma once

#include "samples/common/HostStore.h"

#include <string>
#include <vector>

namespace jsw::sample {

/** The outcome of an update: lines for the record, and success. */
struct UpdateReport {
    std::vector<std::string> lines;
    bool good = true;
    bool installed = false; /**< anything at all */
};

/**
 * Installs the contents of the subfolder "updates" into the given folder, which is also that of the
 * modules, and writes names and flags to the store.
 *
 * @param folder  with a trailing backslash
 */
[[nodiscard]] UpdateReport installUpdates(const std::string& folder, const HostStore& store);

}  // namespace jsw::sample
