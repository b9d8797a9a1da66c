#pragma once

#include "tools/jswctl/check/Source.h"

#include <string>

namespace jsw::ctl {

/// One setting as a job uses it.
struct SettingRow {
    std::string key;
    std::string name;
    const char* type;   ///< "text" or "number"
    std::string value;  ///< the effective value, whatever its source
    Source source;
};

}  // namespace jsw::ctl
