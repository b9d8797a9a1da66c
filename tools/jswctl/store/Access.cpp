#include "tools/jswctl/store/Access.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>

namespace jsw::ctl {

namespace {

using Visit = std::function<void(const std::string& path)>;

/// Visits a key and everything below it, parents first.
void walk(const std::string& path, const Visit& visit) {
    visit(path);
    KeyHandle key;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) != ERROR_SUCCESS) {
        return;
    }
    std::array<char, 256> name{};
    for (DWORD index = 0;; ++index) {
        auto size = static_cast<DWORD>(name.size());
        if (RegEnumKeyExA(key.get(), index, name.data(), &size, nullptr, nullptr, nullptr,
                          nullptr) != ERROR_SUCCESS) {
            return;
        }
        walk(joinPath(path, name.data()), visit);
    }
}

/// Whether an entry of an access list applies to everyone who may print.
bool isForUsers(PSID sid) {
    constexpr WELL_KNOWN_SID_TYPE kUsers[] = {WinWorldSid, WinAuthenticatedUserSid,
                                              WinBuiltinUsersSid, WinInteractiveSid};
    return std::any_of(std::begin(kUsers), std::end(kUsers), [&](WELL_KNOWN_SID_TYPE type) {
        return IsWellKnownSid(sid, type) != FALSE;
    });
}

/// The rights that an access list grants to an ordinary user.
ACCESS_MASK usersRights(ACL* list) {
    GENERIC_MAPPING rights{KEY_READ, KEY_WRITE, KEY_EXECUTE, KEY_ALL_ACCESS};
    ACCESS_MASK granted = 0;
    ACCESS_MASK denied = 0;
    void* next = nullptr;
    for (DWORD index = 0; GetAce(list, index, &next) != FALSE; ++index) {
        auto* entry = static_cast<ACCESS_ALLOWED_ACE*>(next);  // a deny entry has the same layout
        if ((entry->Header.AceFlags & INHERIT_ONLY_ACE) != 0 || !isForUsers(&entry->SidStart)) {
            continue;
        }
        ACCESS_MASK mask = entry->Mask;
        MapGenericMask(&mask, &rights);
        if (entry->Header.AceType == ACCESS_ALLOWED_ACE_TYPE) granted |= mask & ~denied;
        if (entry->Header.AceType == ACCESS_DENIED_ACE_TYPE) denied |= mask & ~granted;
    }
    return granted;
}

bool isOpen(const std::string& path) {
    KeyHandle key;
    DWORD size = 0;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, READ_CONTROL, key.put()) !=
        ERROR_SUCCESS) {
        return false;
    }
    RegGetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, nullptr, &size);
    std::vector<char> bytes(size);
    BOOL present = FALSE;
    BOOL defaulted = FALSE;
    ACL* list = nullptr;
    if (RegGetKeySecurity(key.get(), DACL_SECURITY_INFORMATION, bytes.data(), &size) !=
            ERROR_SUCCESS ||
        GetSecurityDescriptorDacl(bytes.data(), &present, &list, &defaulted) == FALSE) {
        return false;
    }
    return present == FALSE || list == nullptr ||
           (usersRights(list) & KEY_ALL_ACCESS) == KEY_ALL_ACCESS;
}

}  // namespace

std::string firstMissingKey(const std::string& path) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('\\', end + 1);
        std::string part = path.substr(0, end);
        KeyHandle key;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, part.c_str(), 0, READ_CONTROL, key.put()) ==
            ERROR_FILE_NOT_FOUND) {
            return part;
        }
    }
    return {};
}

void openToEveryone(const std::string& path) {
    Security everyone;
    walk(path, [&](const std::string& each) {
        KeyHandle key;
        const LSTATUS status =
            RegOpenKeyExA(HKEY_LOCAL_MACHINE, each.c_str(), 0, WRITE_DAC | READ_CONTROL, key.put());
        if (status == ERROR_FILE_NOT_FOUND) return;
        if (status != ERROR_SUCCESS) {
            throw Win32Exception("cannot open HKLM\\" + each + " to all users",
                                 static_cast<std::uint32_t>(status));
        }
        everyone.doApply(key.get(), SE_REGISTRY_KEY);
    });
}

std::vector<std::string> closedKeys(const std::string& path) {
    std::vector<std::string> closed;
    walk(path, [&](const std::string& each) {
        if (!isOpen(each)) closed.push_back(each);
    });
    return closed;
}

}  // namespace jsw::ctl
