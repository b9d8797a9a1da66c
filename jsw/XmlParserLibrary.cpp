#include "jsw/XmlParserLibrary.h"

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>
#include <new>
#include <vector>

namespace jsw {

namespace {

bool answer(MethodTrace& trace, bool result) {
    trace.setResult(result ? "true" : "false");
    return result;
}

/// The version record inside the version information, or null.
const VS_FIXEDFILEINFO* fixedFileInfo(const std::vector<BYTE>& versionInfo) {
    void* record = nullptr;
    UINT length = 0;
    if (VerQueryValueA(versionInfo.data(), "\\", &record, &length) == FALSE ||
        length != sizeof(VS_FIXEDFILEINFO)) {
        return nullptr;
    }
    return static_cast<const VS_FIXEDFILEINFO*>(record);
}

}  // namespace

bool isMsXmlValid() {
    MethodTrace trace(component::kJsw, "Controller::isMsXmlValid: ");
    KeyHandle key;
    if (RegOpenKeyA(HKEY_CLASSES_ROOT, kXmlParserClass, key.put()) != ERROR_SUCCESS) {
        trace.add("MSXML 3.0 registry key not found, MSXML 3.0 not installed.");
        return answer(trace, false);
    }
    key.reset();
    return answer(trace, IsSupportedMsXmlVersion());
}

bool IsSupportedMsXmlVersion() {
    MethodTrace trace(component::kJsw, "Controller::IsSupportedMsXmlVersion: ");
    std::array<char, MAX_PATH> path{};
    const UINT length = GetSystemDirectoryA(path.data(), static_cast<UINT>(path.size()));
    if (length == 0 || length >= path.size()) {
        trace.add("Unable to get the system directory");
        return answer(trace, false);
    }
    if (PathAppendA(path.data(), kXmlParserFile) == FALSE) {
        trace.add("Unable to append msxml3.dll to the system directory");
        return answer(trace, false);
    }
    return answer(trace, isSupportedParserLibrary(path.data(), trace));
}

std::optional<std::uint32_t> parserLibraryVersion(const std::string& path, MethodTrace& trace) {
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(path.c_str(), &ignored);
    if (size == 0) {
        trace.add("Unable to determine the size needed for the version info");
        return std::nullopt;
    }
    std::vector<BYTE> versionInfo;
    try {
        versionInfo.resize(size);
    } catch (const std::bad_alloc&) {
        trace.add("Unable to allocate the memory needed for the version info");
        return std::nullopt;
    }
    if (GetFileVersionInfoA(path.c_str(), 0, size, versionInfo.data()) == FALSE) {
        trace.add("Unable to get the version info.");
        return std::nullopt;
    }
    const VS_FIXEDFILEINFO* info = fixedFileInfo(versionInfo);
    if (info == nullptr) {
        trace.add("Unable to get the fixed file info from the version info.");
        return std::nullopt;
    }
    return info->dwFileVersionMS;
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
