#include "tests/support/PrivateRegistry.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <atomic>
#include <stdexcept>

namespace jsw::test {

PrivateRegistry::PrivateRegistry() {
    static std::atomic<int> count{0};
    path_ =
        concat("Software\\JswTests\\", GetCurrentProcessId(), "-", GetTickCount(), "-", ++count);
    join(path_);
}

PrivateRegistry::~PrivateRegistry() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegDeleteTreeA(HKEY_CURRENT_USER, path_.c_str());
}

void PrivateRegistry::join(const std::string& path) {
    KeyHandle key;
    if (RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                        key.put(), nullptr) != ERROR_SUCCESS ||
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, key.get()) != ERROR_SUCCESS) {
        throw std::runtime_error("no private registry");
    }
}

bool exists(const std::string& path) {
    KeyHandle key;
    return RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.put()) == ERROR_SUCCESS;
}

}  // namespace jsw::test
