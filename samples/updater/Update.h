#pragma once

#include "samples/common/HostStore.h"

#include <string>
#include <vector>

namespace jsw::updater {

/** What an update has done: lines for the record, and whether everything went well. */
struct UpdateReport {
    std::vector<std::string> lines;
    bool good = true;
};

/**
 * Installs what lies in the folder "updates" of the given folder, which is also where the modules
 * go, and leaves names and flags in the store.
 *
 * @param folder  with its trailing backslash
 */
[[nodiscard]] UpdateReport installUpdates(const std::string& folder,
                                          const sample::HostStore& store);

}  // namespace jsw::updater
