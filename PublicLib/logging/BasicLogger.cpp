#include "PublicLib/logging/BasicLogger.h"

#include "PublicLib/errors/ErrorPlaces.h"
#include "PublicLib/locks/Singleton.h"
#include "PublicLib/logging/LogSwitches.h"
#include "PublicLib/os/Localize.h"

#include <windows.h>

#include <array>

namespace jsw {

namespace {

/// Set while only errors are written: "startLog" is 0, or there is no store. Checked before every
/// line, without the log object.
CachedSwitch switchedOff;

void noteSwitchedOff() {
    switchedOff.store(0, GetTickCount());
}

}  // namespace

std::string BasicLogger::filePath() {
    std::array<char, MAX_PATH> folder{};
    const DWORD length = ExpandEnvironmentStringsA("%ALLUSERSPROFILE%\\", folder.data(),
                                                   static_cast<DWORD>(folder.size()));
    std::string path = length == 0 || length > folder.size() ? "" : folder.data();
    return path + Localize::getInstance()->localId() + "JSW.log";
}

void BasicLogger::createInstance(std::uint32_t mask) {
    singleton<BasicLogger>->instance([mask] {
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
    singleton<BasicLogger>->destroy([] {});
}

std::shared_ptr<BasicLogger> BasicLogger::existing() {
    return singleton<BasicLogger>->existing();
}

BasicLogger::BasicLogger(std::uint32_t mask) : Logger(filePath(), kNameWidth), mask_(mask) {
}

void BasicLogger::readSwitch(const std::string& name, std::uint32_t& value,
                             std::uint32_t defaultValue) {
    value = defaultValue;
    try {
        settingReader().readNumber({setting::kLoggerKey, name.c_str(), defaultValue}, value);
    } catch (const Exception&) {
        value = defaultValue;  // a late line, after Localize was destroyed
    }
    if (name == setting::kStartLog.name && value == 0) noteSwitchedOff();
}

bool BasicLogger::isWanted(const LoggerComponent& component, std::uint32_t level) {
    if (!storeSeen_) {
        storeSeen_ = settingReader().storeExists();
        if (!storeSeen_) {
            noteSwitchedOff();
            return false;
        }
    }
    return isEnabled(component, level);
}

void BasicLogger::recheckStore() {
    switchedOff.clear();
    forgetSwitches();
}

bool isLogEnabled(const LoggerComponent& component, std::uint32_t level) noexcept {
    if ((level & kLogError) == 0 && switchedOff.value(GetTickCount())) return false;
    const auto logger = BasicLogger::existing();
    if (!logger) return false;
    bool enabled = false;
    withoutRaising([&] { enabled = logger->isWanted(component, level); });
    return enabled;
}

void writeLogLine(const LoggerComponent& component, std::uint32_t level, const std::string& text) {
    if (const auto logger = BasicLogger::existing()) logger->log(component, level, text);
}

}  // namespace jsw
