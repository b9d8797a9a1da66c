#pragma once

#include "PublicLib/text/Text.h"

#include <windows.h>

#include <string>

namespace jsw::test {

/// The access that security attributes grant: "default" without attributes, "open" for a null
/// access list, otherwise the list's first entry.
inline std::string accessOf(const SECURITY_ATTRIBUTES* attributes) {
    if (attributes == nullptr) return "default";
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    GetSecurityDescriptorDacl(attributes->lpSecurityDescriptor, &present, &list, &defaulted);
    if (present == FALSE) return "no list";
    if (list == nullptr) return "open";
    void* entry = nullptr;
    GetAce(list, 0, &entry);
    const auto* allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    return concat(list->AceCount, " entry, type ", allowed->Header.AceType, ", inherited ",
                  allowed->Header.AceFlags, ", rights ", allowed->Mask);
}

}  // namespace jsw::test
