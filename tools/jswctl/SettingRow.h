#pragma once

#include "tools/jswctl/check/Source.h"

#include <string>

namespace jsw::ctl {

/// One setting as a job goes by it.
struct SettingRow {
    std::string key;
    std::string name;
    const char* type;   ///< "text" or "number"
    std::string value;  ///< the one that counts, wherever it comes from
    Source source;
};

}  // namespace jsw::ctl
