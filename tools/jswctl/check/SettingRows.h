#pragma once

#include "tools/jswctl/SettingRow.h"
#include "tools/jswctl/check/HostFacts.h"

#include <string>
#include <vector>

namespace jsw::ctl {

/// Every setting as a job goes by it, key by key: those of the host's store, and those of the store
/// that stands for all printers, below "IjPrtSettings".
std::vector<SettingRow> settingRows(const HostFacts& facts);

/// The names of all values that the library knows in a key; letter case of the key aside.
std::vector<std::string> settingNames(const std::string& key);

}  // namespace jsw::ctl
