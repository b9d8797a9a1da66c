#pragma once

#include "PublicLib/os/OsVersion.h"

#include <string>
#include <string_view>

namespace jsw {

/// The web pages' code for a system, and the log's note about it.
struct OsCode {
    std::string_view code;
    std::string_view note{};  ///< may be empty
};
OsCode osCode(OsClass os, bool is64Bit);

/// The codes of this machine in the addresses of web pages.
class PageDirectUtilities {
  public:
    /// The system's default language id, eight hexadecimal digits: "00000409".
    static std::string getCountryCode();
    /// The number of the user's language, in decimal; "0" for English and for languages without
    /// one.
    static std::string getLanguageCode();
    /// Throws Win32Exception if Windows does not return its version.
    static std::string getOsCode();
};

}  // namespace jsw
