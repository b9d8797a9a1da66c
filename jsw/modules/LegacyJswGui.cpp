#include "jsw/modules/LegacyJswGui.h"

#include "PublicLib/os/Localize.h"
#include "PublicLib/os/OsVersion.h"
#include "PublicLib/win/Paths.h"

namespace jsw {

namespace {

constexpr char kModuleName[] = "jswo.dll";

const LoggerComponent& log() {
    return component::kJsw;
}

}  // namespace

LegacyJswGui::LegacyJswGui() {
    MethodTrace trace(log(), "LegacyJswGui::LegacyJswGui: ");
    const std::string fileName = joinPath(OsVersion::instance().printerDriverFolderByMajorVersion(),
                                          Localize::getInstance()->localId() + kModuleName);
    trace.add("Loading JSW GUI DLL, filename=", fileName, ".");
    dll_ = loadModule(fileName, log(), trace);
}

LegacyJswGui::~LegacyJswGui() {
    MethodTrace trace(log(), "LegacyJswGui::~LegacyJswGui: ");
}

template <class Function, class... Args>
auto LegacyJswGui::forward(const char* operation, const char* name, MethodTrace& trace,
                           const Args&... args) -> decltype(std::declval<Function>()(args...)) {
    using Answer = decltype(std::declval<Function>()(args...));
    if (!dll_) {
        logLine(log(), kLogError, operation, " called but GUI not loaded");
        return Answer();
    }
    auto* entry = findEntry<Function>(dll_.get(), name, trace);
    return entry == nullptr ? Answer() : callEntry(log(), name, entry, args...);
}

bool LegacyJswGui::jswInitEx(const std::string& text) {
    MethodTrace trace(log(), "LegacyJswGui::jswInitEx: ");
    const std::uint32_t answer =
        forward<JswLegacyInitEx>("jswInitEx", "JSWInitEx", trace, text.c_str());
    trace.setResult(static_cast<std::int32_t>(answer));
    return answer != 0;
}

void LegacyJswGui::jswTerminate() {
    MethodTrace trace(log(), "LegacyJswGui::jswTerminate: ");
    forward<JswLegacyTerminate>("jswTerminate", "JSWTerminate", trace);
}

void LegacyJswGui::jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages) {
    MethodTrace trace(log(), "LegacyJswGui::jswDisplayPrompt: ");
    const auto type = static_cast<std::int32_t>(promptType);
    const auto pages = static_cast<std::int32_t>(totalPages);
    trace.add("promptType=", type, ", totalPages=", pages);
    forward<JswLegacyDisplayPrompt>("jswDisplayPrompt", "JSWDisplayPrompt", trace, type, pages);
}

void LegacyJswGui::jswPostDlgMsg(void* message) {
    MethodTrace trace(log(), "LegacyJswGui::jswPostDlgMsg: ");
    forward<JswLegacyPostDlgMsg>("jswPostDlgMsg", "JSWPostDlgMsg", trace, message);
}

}  // namespace jsw
