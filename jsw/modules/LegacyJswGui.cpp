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

/// The entry point. Without a module a line is written even with the log off.
template <class Function>
ModuleCall<Function> LegacyJswGui::find(const char* operation, const char* name,
                                        MethodTrace& trace) const {
    if (dll_) return findEntry<Function>(dll_.get(), component::kJsw, name, trace);
    logLine(component::kJsw, kLogError, operation, " called but GUI not loaded");
    return {component::kJsw, name, nullptr};
}

bool LegacyJswGui::jswInitEx(const std::string& text) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswInitEx: ");
    const auto entry = find<JswLegacyInitEx>("jswInitEx", "JSWInitEx", trace);
    if (!entry) return false;
    return trace.returning(asSigned(entry(text.c_str()))) != 0;
}

void LegacyJswGui::jswTerminate() {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswTerminate: ");
    find<JswLegacyTerminate>("jswTerminate", "JSWTerminate", trace)();
}

void LegacyJswGui::jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswDisplayPrompt: ");
    trace.add("promptType=", asSigned(promptType), ", totalPages=", asSigned(totalPages));
    find<JswLegacyDisplayPrompt>("jswDisplayPrompt", "JSWDisplayPrompt", trace)(
        asSigned(promptType), asSigned(totalPages));
}

void LegacyJswGui::jswPostDlgMsg(void* message) {
    MethodTrace trace(component::kJsw, "LegacyJswGui::jswPostDlgMsg: ");
    find<JswLegacyPostDlgMsg>("jswPostDlgMsg", "JSWPostDlgMsg", trace)(message);
}

}  // namespace jsw
