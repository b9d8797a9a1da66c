#include "tools/qldemo/DemoStore.h"

#include <windows.h>

#include <cstdlib>
#include <stdexcept>

namespace jsw::qldemo {
namespace {

/** The library derives the last part from the first four letters of the program's name. */
constexpr const char* kStore = "Software\\QuillonInkjet\\JSW\\Local\\qlde";
constexpr const char* kSettingsKey = "Software\\QuillonInkjet\\JSW\\Local\\qlde\\Settings";
constexpr const char* kLoggerKey = "Software\\QuillonInkjet\\JSW\\Local\\qlde\\Logger";
constexpr const char* kClientValue = "PcsClient";

void check(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS) {
        throw std::runtime_error(std::string("cannot set ") + what + " in the registry, error " +
                                 std::to_string(status));
    }
}

}  // namespace

bool storeExists() {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kStore, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
    RegCloseKey(key);
    return true;
}

std::string logFilePath() {
    const char* folder = std::getenv("ALLUSERSPROFILE");
    return std::string(folder != nullptr ? folder : "") + "\\qldeJSW.log";
}

void switchLogOn() {
    constexpr DWORD kEverything = 0xFFFFFFFF;
    for (const char* value : {"startLog", "All"}) {
        check(RegSetKeyValueA(HKEY_LOCAL_MACHINE, kLoggerKey, value, REG_DWORD, &kEverything,
                              sizeof kEverything),
              value);
    }
}

void setDeviceClient(const std::string& path) {
    check(RegSetKeyValueA(HKEY_LOCAL_MACHINE, kSettingsKey, kClientValue, REG_SZ, path.c_str(),
                          static_cast<DWORD>(path.size() + 1)),
          kClientValue);
}

void removeDeviceClient() {
    const LSTATUS status = RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kSettingsKey, kClientValue);
    if (status != ERROR_FILE_NOT_FOUND) check(status, kClientValue);
}

}  // namespace jsw::qldemo
