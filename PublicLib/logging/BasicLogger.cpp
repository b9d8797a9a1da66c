#include "PublicLib/logging/BasicLogger.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/os/Localize.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

#include <array>

namespace jsw {

namespace {

NeverDestroyed<Singleton<BasicLogger>> singleton;

// Holds while "startLog" is known to be 0: what is not wanted is found out without the log object.
CachedSwitch switchedOff;

}  // namespace

std::string BasicLogger::filePath() {
    std::array<char, MAX_PATH> folder{};
    const DWORD length = ExpandEnvironmentStringsA("%ALLUSERSPROFILE%\\", folder.data(),
                                                   static_cast<DWORD>(folder.size()));
    std::string path = length == 0 || length > folder.size() ? "" : folder.data();
    return path + Localize::getInstance()->localId() + "JSW.log";
}

void BasicLogger::createInstance(std::uint32_t mask) {
    singleton->instance([mask] {
        switchedOff.clear();
        return std::make_shared<BasicLogger>(mask);
    });
}

std::shared_ptr<BasicLogger> BasicLogger::getInstance() {
    auto logger = existing();
    if (!logger) throw Win32Exception("BasicLogger::getInstance()", 0, place::kNoLogger);
    return logger;
}

void BasicLogger::destroyInstance() {
    singleton->destroy([] { switchedOff.clear(); });
}

std::shared_ptr<BasicLogger> BasicLogger::existing() {
    return singleton->existing();
}

BasicLogger::BasicLogger(std::uint32_t mask) : Logger(filePath(), kNameWidth), mask_(mask) {
}

void BasicLogger::readSwitch(const std::string& name, std::uint32_t& value,
                             std::uint32_t defaultValue) {
    value = defaultValue;
    try {
        Settings().getValue(setting::kLoggerKey, name, value);
    } catch (const Exception&) {
        value = defaultValue;  // a late line, after the host's names are gone
    }
    if (name == "startLog" && value == 0) switchedOff.store(0, GetTickCount());
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
    switchedOff.clear();
    forgetSwitches();
}

bool isLogEnabled(const LoggerComponent& component, std::uint32_t level) noexcept {
    if ((level & kLogError) == 0 && switchedOff.value(GetTickCount())) return false;
    const auto logger = BasicLogger::existing();
    if (!logger) return false;
    bool enabled = false;
    withoutRaising(
        [&] { enabled = logger->isStoreAvailable() && logger->isEnabled(component, level); });
    return enabled;
}

void writeLogLine(const LoggerComponent& component, std::uint32_t level, const std::string& text) {
    if (const auto logger = BasicLogger::existing()) logger->log(component, level, text);
}

}  // namespace jsw
