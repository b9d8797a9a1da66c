#include "PublicLib/logging/BasicLogger.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/os/Localize.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

#include <array>
#include <memory>
#include <mutex>

namespace jsw {

namespace {

CriticalSection instanceLock;
std::atomic<BasicLogger*> active{nullptr};

/// Keeps the log object for the life of the library; nobody finds it any more when it goes.
struct Keeper {
    std::unique_ptr<BasicLogger> logger;

    Keeper() = default;
    ~Keeper() { active = nullptr; }
    Keeper(const Keeper&) = delete;
    Keeper& operator=(const Keeper&) = delete;
};
Keeper keeper;

}  // namespace

std::string BasicLogger::filePath() {
    std::array<char, MAX_PATH> folder{};
    const DWORD length = ExpandEnvironmentStringsA("%ALLUSERSPROFILE%\\", folder.data(),
                                                   static_cast<DWORD>(folder.size()));
    std::string path = length == 0 || length > folder.size() ? "" : folder.data();
    return path + Localize::getInstance()->localId() + "JSW.log";
}

void BasicLogger::createInstance(std::uint32_t mask) {
    const std::lock_guard lock(instanceLock);
    if (active != nullptr) return;
    if (keeper.logger) {
        keeper.logger->restart(mask);
    } else {
        keeper.logger = std::make_unique<BasicLogger>(mask);
    }
    active = keeper.logger.get();
}

BasicLogger& BasicLogger::getInstance() {
    BasicLogger* logger = active;
    if (logger == nullptr) {
        throw Win32Exception("BasicLogger::getInstance()", 0, "BasicLogger", 58);
    }
    return *logger;
}

void BasicLogger::destroyInstance() {
    const std::lock_guard lock(instanceLock);
    active = nullptr;
}

BasicLogger* BasicLogger::existing() {
    return active;
}

BasicLogger::BasicLogger(std::uint32_t mask) : Logger(filePath(), kNameWidth), mask_(mask) {
}

void BasicLogger::restart(std::uint32_t mask) {
    mask_ = mask;
    reset();
    storeSeen_ = false;
    recheckStore();
}

void BasicLogger::readSwitch(const std::string& name, std::uint32_t& value,
                             std::uint32_t defaultValue) {
    value = defaultValue;
    try {
        Settings().getDwordValue(setting::kLoggerKey, name, value);
    } catch (const Exception&) {
        value = defaultValue;  // a late line, after the host's names are gone
    }
}

bool BasicLogger::isStoreAvailable() {
    if (storeSeen_) return true;
    const DWORD tick = GetTickCount();
    if (storeMissing_.value(tick)) return false;
    try {
        storeSeen_ = Settings().rootExists();
    } catch (const Exception&) {
        return false;
    }
    if (!storeSeen_) storeMissing_.store(1, tick);
    return storeSeen_;
}

void BasicLogger::recheckStore() {
    storeMissing_.clear();
    forgetSwitches();
}

bool isLogEnabled(const LoggerComponent& component, std::uint32_t level) {
    BasicLogger* logger = BasicLogger::existing();
    return logger != nullptr && logger->isStoreAvailable() && logger->isEnabled(component, level);
}

void writeLogLine(const LoggerComponent& component, std::uint32_t level, const std::string& text) {
    if (BasicLogger* logger = BasicLogger::existing()) logger->log(component, level, text);
}

}  // namespace jsw
