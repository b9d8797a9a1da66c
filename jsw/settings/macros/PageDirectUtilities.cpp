#include "jsw/settings/macros/PageDirectUtilities.h"

#include "PublicLib/logging/MethodTrace.h"
#include "jsw/settings/macros/LanguageCodes.h"

#include <windows.h>

#include <cstdio>

namespace jsw {

OsCode osCode(OsClass os, bool is64Bit) {
    switch (os) {
        case OsClass::xp:
            return {"5"};
        case OsClass::server2003:
            return is64Bit ? OsCode{"9", "is 64 bit XP"} : OsCode{"5"};
        case OsClass::vista:
            return is64Bit ? OsCode{"11", "is 64 bit Vista"} : OsCode{"10"};
        default:
            return {"3"};
    }
}

std::string PageDirectUtilities::getCountryCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getCountryCode()");
    char digits[9];
    std::snprintf(digits, sizeof(digits), "%.8X", unsigned{GetSystemDefaultLangID()});
    return trace.returning(std::string(digits));
}

std::string PageDirectUtilities::getLanguageCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getLanguageCode()");
    return trace.returning(std::to_string(languageCode(GetUserDefaultLangID())));
}

std::string PageDirectUtilities::getOsCode() {
    MethodTrace trace(component::kJsw, "PageDirectUtilities::getOsCode()");
    const bool is64Bit = sizeof(void*) == 8 || OsVersion::isRunningUnderWow64();
    const OsCode os = osCode(OsVersion::instance().classification(), is64Bit);
    if (!os.note.empty()) trace.add(os.note);
    return trace.returning(std::string(os.code));
}

}  // namespace jsw
