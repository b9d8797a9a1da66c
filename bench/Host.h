#pragma once

#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"

#include <cstdint>

namespace jsw::bench {

/// The host's names, a store and the log, for some measures; all removed afterwards. The store is
/// that of host "qlbe" in the machine's registry: use a separate Wine prefix.
class Host {
  public:
    /// @param startLog  1: the log is on, with all levels
    explicit Host(std::uint32_t startLog) {
        Localize::createInstance(nullptr);
        provideSettings();
        RegistryKey(Localize::getInstance()->getRegistryPath(StoreKind::local), true);
        Settings().setValue(setting::kLoggerKey, "startLog", startLog);
        BasicLogger::createInstance(15);
    }
    ~Host() {
        if (const auto logger = BasicLogger::existing()) logger->deleteLog();
        BasicLogger::destroyInstance();
        static_cast<void>(Settings().removeStore());
        Localize::destroy();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

}  // namespace jsw::bench
