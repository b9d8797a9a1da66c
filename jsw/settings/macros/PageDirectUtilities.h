#pragma once

#include <string>

namespace jsw {

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
