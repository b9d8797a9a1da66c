// Whether the XML parser is there and recent enough: see Controller.h.

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Handles.h"
#include "jsw/Controller.h"
#include "jsw/XmlParserLibrary.h"

#include <windows.h>

#include <shlwapi.h>

#include <array>

namespace jsw {

namespace {

bool answer(MethodTrace& trace, bool result) {
    trace.setResult(result ? "true" : "false");
    return result;
}

}  // namespace

bool Controller::isMsXmlValid() {
    MethodTrace trace(component::kJsw, "Controller::isMsXmlValid: ");
    KeyHandle key;
    if (RegOpenKeyA(HKEY_CLASSES_ROOT, kXmlParserClass, key.put()) != ERROR_SUCCESS) {
        trace.add("MSXML 3.0 registry key not found, MSXML 3.0 not installed.");
        return answer(trace, false);
    }
    key.reset();
    return answer(trace, IsSupportedMsXmlVersion());
}

bool Controller::IsSupportedMsXmlVersion() {
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

}  // namespace jsw
