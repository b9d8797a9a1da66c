#pragma once

#include "tools/jswctl/SettingRow.h"
#include "tools/jswctl/check/HostFacts.h"

#include <string>
#include <vector>

namespace jsw::ctl {

/// Every setting as a job uses it, key by key: those of the host's store, and those of the store
/// for all printers, below "IjPrtSettings".
std::vector<SettingRow> settingRows(const HostFacts& facts);

/// The names of all values that the library knows in a key, in any letter case of the key.
std::vector<std::string> settingNames(const std::string& key);

}  // namespace jsw::ctl
