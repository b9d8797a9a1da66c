#pragma once

#include "PublicLib/BasicDll.h"
#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/EntryPoint.h"
#include "jsw/settings/SettingNames.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

/// What all bindings of modules have in common: where a module's file is, how it is loaded, how an
/// entry point is called and who frees what it returns.
///
/// When a module is loaded, how long it stays, and when a failed load is repeated:
///
///     view           with the first job's objects; stays for the process    with the next job's
///     catalog        at its first question; until the job's objects go      at the next question
///     rules engine   when the rules of a job are run; until they end        in the next job
///     older window   when a prompt begins; until it is answered             at the next prompt
///     device client  by PcsClient, at each call that needs it               at the next call
///
/// An update takes effect at these moments. Each failure is logged, and the query gets the empty
/// answer.
namespace jsw {

using ModuleDll = BasicDll<DllHandler>;

/// Full path of a module's file: the module folder from the settings ("DllPath", default ".")
/// joined with the module's name from the settings, or its default name.
std::string moduleFilePath(const setting::Text& module);

/// Loads a module; null, with an error line in the log, if it cannot be loaded.
std::unique_ptr<ModuleDll> loadModule(const std::string& fileName, const LoggerComponent& component,
                                      MethodTrace& trace);

/// An entry point of a module. If it is missing, or raises, a call returns the empty answer, and
/// the print job goes on.
template <class Function>
class ModuleCall {
  public:
    ModuleCall(const LoggerComponent& component, const char* name, Function* entry)
        : component_(component), name_(name), entry_(entry) {}

    explicit operator bool() const { return entry_ != nullptr; }

    template <class... Args>
    auto operator()(const Args&... args) const {
        CallEnd end{};
        return telling(end, args...);
    }
    /// Calls it and tells how that ended; end stays as it is when there is nothing to call.
    template <class... Args>
    auto telling(CallEnd& end, const Args&... args) const
        -> decltype(std::declval<Function>()(args...)) {
        if (entry_ == nullptr) return decltype(entry_(args...))();
        return callForeign(
            component_, name_, [&] { return entry_(args...); }, end);
    }

  private:
    const LoggerComponent& component_;
    const char* name_;
    Function* entry_;
};

/// A module's entry point; the trace notes a missing one. Looked up at every call, because the
/// module may be loaded again between two calls.
/// @param dll  null when there is no module
template <class Function>
ModuleCall<Function> findEntry(const ModuleDll* dll, const LoggerComponent& component,
                               const char* name, MethodTrace& trace) {
    auto* entry = dll == nullptr ? nullptr : findEntryPoint<Function>(dll->handle(), name);
    if (entry == nullptr) trace.add("Could not get proc address for ", name);
    return {component, name, entry};
}

/// The allocation function for modules: size bytes that this library frees, or null.
void* allocateForModule(std::int32_t size);

struct FreeModuleMemory {
    void operator()(void* memory) const { std::free(memory); }
};
/// Owns a text or array that a module has allocated with allocateForModule().
template <class T>
using ModuleMemory = std::unique_ptr<T, FreeModuleMemory>;

/// Copies a text that a module returned (null: empty) and frees it. An invalid pointer is the
/// module's fault.
std::string takeText(char* text);

}  // namespace jsw
