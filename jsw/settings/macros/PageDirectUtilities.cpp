#include "jsw/settings/macros/PageDirectUtilities.h"

#include "PublicLib/logging/MethodTrace.h"
#include "jsw/settings/macros/LanguageCodes.h"
#include "jsw/settings/macros/OsCodes.h"

#include <windows.h>

#include <cstdio>

namespace jsw {

std::string PageDirectUtilities::getCountryCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getCountryCode()");
    char digits[9];
    std::snprintf(digits, sizeof(digits), "%.8X", unsigned{GetSystemDefaultLangID()});
    trace.setResult(digits);
    return digits;
}

std::string PageDirectUtilities::getLanguageCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getLanguageCode()");
    std::string code = std::to_string(languageCode(GetUserDefaultLangID()));
    trace.setResult(code);
    return code;
}

std::string PageDirectUtilities::getOsCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getOsCode()");
    const bool is64Bit = sizeof(void*) == 8 || OsVersion::isRunningUnderWow64();
    const OsCode os = osCode(OsVersion::instance().classification(), is64Bit);
    if (!os.note.empty()) trace.add(os.note);
    std::string code(os.code);
    trace.setResult(code);
    return code;
}

}  // namespace jsw
