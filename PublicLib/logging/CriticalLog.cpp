#include "PublicLib/logging/CriticalLog.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/logging/Logger.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"

#include <memory>
#include <mutex>

namespace jsw {

namespace {

constexpr std::size_t kModuleNameLength = 4;  // see "Fixed interfaces" in docs/architecture.md

struct Critical {
    Critical(const std::string& fileName, const std::string& componentName)
        : logger(fileName, Logger::kNameWidth), component(componentName, kLogError) {}

    Logger logger;
    LoggerComponent component;
};

CriticalSection criticalLock;
std::unique_ptr<Critical> critical;

std::string fileNameOf(const std::string& fileBase, HMODULE module) {
    if (!fileBase.empty()) return criticalLogFileName(fileBase, {});
    const std::string name = moduleFileName(module);
    if (name.empty()) {
        throw Win32Exception("CriticalLog(): GetModuleFileName failed", 0, place::kCriticalLogName);
    }
    return criticalLogFileName({}, name);
}

}  // namespace

std::string criticalLogFileName(std::string_view fileBase, std::string_view moduleFileName) {
    if (!fileBase.empty()) return concat(fileBase, ".log");
    return toLower(fileNamePart(moduleFileName).substr(0, kModuleNameLength)) + ".log";
}

void CriticalLog(const std::string& fileBase, const std::string& componentName,
                 const std::string& message, HMODULE module) {
    const std::lock_guard lock(criticalLock);
    if (!critical) {
        critical = std::make_unique<Critical>(fileNameOf(fileBase, module), componentName);
    }
    critical->logger.log(critical->component, kLogError, message);
}

}  // namespace jsw
