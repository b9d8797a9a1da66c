#include "jsw/XmlParserLibrary.h"

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>
#include <new>
#include <vector>

namespace jsw {

bool isMsXmlValid() {
    MethodTrace trace(component::kJsw, "Controller::isMsXmlValid: ");
    KeyHandle key;
    if (RegOpenKeyA(HKEY_CLASSES_ROOT, kXmlParserClass, key.put()) != ERROR_SUCCESS) {
        trace.add("MSXML 3.0 registry key not found, MSXML 3.0 not installed.");
        return trace.answering(false);
    }
    return trace.answering(IsSupportedMsXmlVersion());
}

bool IsSupportedMsXmlVersion() {
    MethodTrace trace(component::kJsw, "Controller::IsSupportedMsXmlVersion: ");
    const auto fail = [&](const char* why) {
        trace.add(why);
        return trace.answering(false);
    };
    std::array<char, MAX_PATH> path{};
    const UINT length = GetSystemDirectoryA(path.data(), static_cast<UINT>(path.size()));
    if (length == 0 || length >= path.size()) return fail("Unable to get the system directory");
    if (PathAppendA(path.data(), kXmlParserFile) == FALSE)
        return fail("Unable to append msxml3.dll to the system directory");
    return trace.answering(isSupportedParserLibrary(path.data(), trace));
}

std::optional<std::uint32_t> parserLibraryVersion(const std::string& path, MethodTrace& trace) {
    const auto fail = [&](const char* why) {
        trace.add(why);
        return std::nullopt;
    };
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &ignored);
    if (size == 0) return fail("Unable to determine the size needed for the version info");
    std::vector<BYTE> versionInfo;
    try {
        versionInfo.resize(size);
    } catch (const std::bad_alloc&) {
        return fail("Unable to allocate the memory needed for the version info");
    }
    if (GetFileVersionInfoA(path.c_str(), 0, size, versionInfo.data()) == FALSE)
        return fail("Unable to get the version info.");
    void* record = nullptr;
    UINT length = 0;
    if (VerQueryValueA(versionInfo.data(), "\\", &record, &length) == FALSE ||
        length != sizeof(VS_FIXEDFILEINFO))
        return fail("Unable to get the fixed file info from the version info.");
    return static_cast<const VS_FIXEDFILEINFO*>(record)->dwFileVersionMS;
}

bool isSupportedParserLibrary(const std::string& path, MethodTrace& trace) {
    const auto version = parserLibraryVersion(path, trace);
    if (!version) return false;
    if (*version >= kMinXmlParserVersion) return true;
    trace.add("MSXML3 version=", *version);
    trace.add("The min required version=", kMinXmlParserVersion);
    return false;
}

}  // namespace jsw
