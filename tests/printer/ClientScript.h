#pragma once

#include <jsw/device.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace jsw::test {

struct ScriptedDevice {
    JswDeviceHandle handle;
    const char* name;  // of a printer
    const char* port;
    JswDeviceStatus textStatus = 0;
};

/// The scripted device client's answers, and records of its calls. It is in the test program; the
/// client finds it by the environment and only reads the containers.
struct ClientScript {
    JswDeviceStatus initializeStatus = 0;
    std::uint32_t initializeError = 0;  // left in GetLastError() by a failing PcsInitialize
    JswDeviceStatus clientIdStatus = 0;
    JswDeviceStatus openStatus = 0;
    JswDeviceStatus callStatus = 0;  // of the other calls
    std::vector<ScriptedDevice> printers, hids, scanners;
    std::string transport = "USB1";
    JswDeviceStatus transportStatus = 0;
    std::vector<std::uint8_t> cache;
    std::uint32_t cacheLength = 0;  // as reported
    JswDeviceStatus cacheStatus = 0;
    std::vector<std::uint8_t> response;  // its first bytes that fit are written
    JswDeviceStatus exchangeStatus = 0;

    // Of PcsUninitialize, PcsGetHostInfo and the closes.
    void (*onCall)(const std::string& name) = nullptr;
    // For work that several threads need and one of them does.
    void (*onShared)(const std::string& name) = nullptr;

    int initialized = 0;          // PcsInitialize minus PcsUninitialize
    std::atomic<int> opened = 0;  // opens minus closes
    int clientIdsGiven = 0;
    int cacheReads = 0;
    int exchanges = 0;
    std::array<std::uint8_t, 16> request{};
    std::uint32_t requestLength = 0;
    std::array<std::uintptr_t, 8> words{};  // of the last call with words
};

inline constexpr char kScriptVariable[] = "JSW_CLIENT_SCRIPT";

}  // namespace jsw::test
