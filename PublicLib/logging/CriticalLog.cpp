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

CriticalSection criticalLock;  // critical
std::unique_ptr<Critical> critical;

}  // namespace

std::string criticalLogFileName(std::string_view fileBase, std::string_view moduleFileName) {
    if (!fileBase.empty()) return concat(fileBase, ".log");
    return toLower(fileNamePart(moduleFileName).substr(0, kModuleNameLength)) + ".log";
}

void CriticalLog(const std::string& fileBase, const std::string& componentName,
                 const std::string& message, HMODULE module) {
    const std::lock_guard lock(criticalLock);
    if (!critical) {
        const std::string name = fileBase.empty() ? moduleFileName(module) : "";
        if (fileBase.empty() && name.empty()) {
            throw Win32Exception("CriticalLog(): GetModuleFileName failed", 0,
                                 place::kCriticalLogName);
        }
        critical = std::make_unique<Critical>(criticalLogFileName(fileBase, name), componentName);
    }
    critical->logger.log(critical->component, kLogError, message);
}

}  // namespace jsw
