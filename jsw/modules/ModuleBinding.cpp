#include "jsw/modules/ModuleBinding.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/win/Paths.h"
#include "jsw/settings/Settings.h"

#include <cstring>

namespace jsw {

namespace {

std::string readOr(const setting::Text& text, const std::string& fallback) {
    std::string value;
    Settings().read(text, value);
    return value.empty() ? fallback : value;
}

/// The local id followed by the name of the module's kind.
std::string defaultModuleName(const setting::Text& module) {
    return Localize::getInstance()->localId() + module.defaultValue;
}

}  // namespace

std::string moduleFilePath(const setting::Text& module) {
    return joinPath(readOr(setting::kDllPath, setting::kDllPath.defaultValue),
                    readOr(module, defaultModuleName(module)));
}

std::unique_ptr<ModuleDll> loadModule(const std::string& fileName, const LoggerComponent& component,
                                      MethodTrace& trace) {
    try {
        auto dll = std::make_unique<ModuleDll>();
        dll->init(fileName);
        return dll;
    } catch (const Win32Exception& error) {
        logLine(component, kLogError, "ERROR - ", error.message());
        trace.add(error.text());
        return nullptr;
    }
}

void* allocateForModule(std::int32_t size) {
    return size < 0 ? nullptr : std::malloc(static_cast<std::size_t>(size));
}

std::string takeText(char* text) {
    if (text == nullptr) return {};
    CallEnd end{};
    const std::size_t length = callForeign(
        component::kJsw, "a text that it returned", [&] { return std::strlen(text); }, end);
    if (end != CallEnd::returned) return {};  // ownership unknown, so not freed
    const ModuleMemory<char> owner(text);
    return {text, length};
}

}  // namespace jsw
