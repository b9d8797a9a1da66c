#include "jsw/modules/LegacyJswGui.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/win/Paths.h"

#include <windows.h>

namespace jsw {

namespace {

constexpr char kModuleName[] = "jswo.dll";

}  // namespace

LegacyJswGui::LegacyJswGui() {
    MethodTrace trace(component::kJsw, "LegacyJswGui::LegacyJswGui: ");
    const std::string folder = OsVersion::instance().printerDriverFolderByMajorVersion();
    if (folder.empty()) {  // the path would name the root of a drive
        logLine(component::kJsw, kLogError,
                "ERROR - The printer driver directory is unknown, error=", GetLastError(),
                ". The JSW GUI DLL is not loaded.");
        return;
    }
    const std::string fileName = joinPath(folder, Localize::getInstance()->localId() + kModuleName);
    trace.add("Loading JSW GUI DLL, filename=", fileName, ".");
    dll_ = loadModule(fileName, component::kJsw, trace);
}

LegacyJswGui::~LegacyJswGui() {
    MethodTrace trace(component::kJsw, "LegacyJswGui::~LegacyJswGui: ");
}

/// The entry point, or null. Without a module a line is written even with the log off.
template <class Function>
Function* LegacyJswGui::find(const char* operation, const char* name, MethodTrace& trace) const {
    if (dll_) return findEntry<Function>(dll_.get(), name, trace);
    logLine(component::kJsw, kLogError, operation, " called but GUI not loaded");
    return nullptr;
}

bool LegacyJswGui::jswInitEx(const std::string& text) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswInitEx: ");
    constexpr char kName[] = "JSWInitEx";
    auto* entry = find<JswLegacyInitEx>("jswInitEx", kName, trace);
    if (entry == nullptr) return false;
    const std::uint32_t answer = callEntry(component::kJsw, kName, entry, text.c_str());
    trace.setResult(asSigned(answer));
    return answer != 0;
}

void LegacyJswGui::jswTerminate() {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswTerminate: ");
    constexpr char kName[] = "JSWTerminate";
    if (auto* entry = find<JswLegacyTerminate>("jswTerminate", kName, trace)) {
        callEntry(component::kJsw, kName, entry);
    }
}

void LegacyJswGui::jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswDisplayPrompt: ");
    trace.add("promptType=", asSigned(promptType), ", totalPages=", asSigned(totalPages));
    constexpr char kName[] = "JSWDisplayPrompt";
    if (auto* entry = find<JswLegacyDisplayPrompt>("jswDisplayPrompt", kName, trace)) {
        callEntry(component::kJsw, kName, entry, asSigned(promptType), asSigned(totalPages));
    }
}

void LegacyJswGui::jswPostDlgMsg(void* message) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswPostDlgMsg: ");
    constexpr char kName[] = "JSWPostDlgMsg";
    if (auto* entry = find<JswLegacyPostDlgMsg>("jswPostDlgMsg", kName, trace)) {
        callEntry(component::kJsw, kName, entry, message);
    }
}

}  // namespace jsw
