#pragma once

#include <string>

namespace jsw {

/// The codes of this machine that the addresses of web pages carry.
class PageDirectUtilities {
  public:
    /// The system's default language id, eight hexadecimal digits: "00000409".
    static std::string getCountryCode();
    /// The number of the user's language, in decimal; "0" for English and all without a number.
    static std::string getLanguageCode();
    /// Throws Win32Exception when Windows does not tell its version.
    static std::string getOsCode();
};

}  // namespace jsw
