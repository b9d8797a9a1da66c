#pragma once

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/logging/CriticalLog.h"
#include "PublicLib/win/LoadLibrary.h"

#include <windows.h>

#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace jsw {

/// A module as its handler sees it.
class LoadedModule {
  public:
    /// Null when nothing is loaded.
    HMODULE handle() const { return handle_; }
    /// File name as passed to the loader.
    const std::string& name() const { return name_; }

  protected:
    LoadedModule() = default;
    ~LoadedModule() = default;

    std::string name_;          // NOLINT(*-non-private-member-variables-in-classes)
    HMODULE handle_ = nullptr;  // NOLINT(*-non-private-member-variables-in-classes)
};

/// Hooks after a module's load and before it is freed. These do nothing.
class DllHandler {
  public:
    virtual ~DllHandler() = default;
    virtual void onLoad(LoadedModule& /*module*/) {}
    virtual void onUnload(LoadedModule& /*module*/) {}
};

/// The number of loader objects that hold each module. One table for the process; a freed module
/// stays in it with count 0.
struct ModuleTable {
    CriticalSection lock;
    std::map<HMODULE, std::int32_t> counts;

    static ModuleTable& instance() {
        static ModuleTable table;
        return table;
    }
};

/// Loads a module by file name and keeps it loaded while any loader object holds it. The handler's
/// hooks run under the table's lock.
template <class Handler>
class BasicDll : public LoadedModule {
  public:
    BasicDll() = default;
    BasicDll(const BasicDll&) = delete;
    BasicDll& operator=(const BasicDll&) = delete;

    /// Loads the module, or shares it. Call it once. Throws Win32Exception if it cannot be loaded.
    void init(const std::string& fileName) {
        name_ = fileName;
        ModuleTable& table = ModuleTable::instance();
        const std::lock_guard lock(table.lock);
        handle_ = GetModuleHandleA(fileName.c_str());
        // If other code has loaded the module, load it once more, so that it stays loaded.
        if (refCount(handle_) < 1) load(table);
        ++table.counts[handle_];
    }

    /// How many loader objects hold the module; 0 for one that was not loaded here.
    static std::int32_t refCount(HMODULE handle) {
        ModuleTable& table = ModuleTable::instance();
        const std::lock_guard lock(table.lock);
        const auto entry = table.counts.find(handle);
        return handle == nullptr || entry == table.counts.end() ? 0 : entry->second;
    }

    virtual ~BasicDll() {
        if (handle_ == nullptr) return;
        try {
            release();
        } catch (...) {
            reportReleaseFailure();
        }
    }

  private:
    void load(ModuleTable& table) {
        handle_ = loadLibraryQuietly(name_).release();
        if (handle_ == nullptr) {
            const DWORD error = GetLastError();
            throw Win32Exception("BasicDll<Handler>::init() Unable to load DLL=" + name_, error,
                                 place::kModuleLoad);
        }
        try {
            // The table may already contain the same file under another spelling.
            table.counts.try_emplace(handle_, 0);
            handler_.onLoad(*this);
        } catch (...) {
            FreeLibrary(std::exchange(handle_, nullptr));
            throw;
        }
    }

    void release() {
        ModuleTable& table = ModuleTable::instance();
        const std::lock_guard lock(table.lock);
        const auto entry = table.counts.find(handle_);
        if (entry == table.counts.end() || --entry->second != 0) return;
        handler_.onUnload(*this);
        FreeLibrary(handle_);
        handle_ = nullptr;
    }

    void reportReleaseFailure() {
        try {
            CriticalLog("dkab", "DebugData",
                        "BasicDll<Handler>::~BasicDll(): Caught exception on '" + name_ + "'",
                        nullptr);
        } catch (...) {  // NOLINT(bugprone-empty-catch): nowhere to report to
        }
    }

    Handler handler_;
};

}  // namespace jsw
