#pragma once

#include "PublicLib/os/OsVersion.h"

#include <string_view>

namespace jsw {

/// The web pages' code for a system, and the log's note about it.
struct OsCode {
    std::string_view code;
    std::string_view note;  ///< may be empty
};

OsCode osCode(OsClass os, bool is64Bit);

}  // namespace jsw
