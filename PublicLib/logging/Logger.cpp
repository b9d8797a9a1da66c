#include "PublicLib/logging/Logger.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/LogLine.h"

#include <windows.h>

#include <atomic>

namespace jsw {

namespace {

// Set for the rest of the process if a log file cannot be set up.
std::atomic<bool> loggingKilled{false};

LogTime localTime() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
            now.wMinute, now.wSecond, now.wMilliseconds};
}

}  // namespace

Logger::Logger(const std::string& path, unsigned nameWidth) : nameWidth_(nameWidth) {
    try {
        file_ = std::make_unique<LogFile>(path);
    } catch (const Win32Exception&) {
        loggingKilled = true;
    }
}

Logger::~Logger() = default;

void Logger::log(const LoggerComponent& component, std::uint32_t level, const std::string& text) {
    log(component, level, text.c_str());
}

void Logger::log(const LoggerComponent& component, std::uint32_t level, const char* text) {
    if (!file_) return;
    try {
        file_->append(formatLine(component, level, text), [this] { onLogFileMissing(); });
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the log has no log
    }
}

void Logger::deleteLog() {
    if (file_) file_->remove();
}

void Logger::readSwitch(const std::string& name, std::uint32_t& value, std::uint32_t defaultValue) {
    constexpr std::uint32_t kAllBits = 0xFFFFFFFF;
    if (name != setting::kStartLog.name) {
        value = defaultValue;
    } else {
        value = file_ && file_->isReadable() ? kAllBits : 0;
    }
}

void Logger::onLogFileMissing() {
}

std::string Logger::linePrefix(const LoggerComponent& /*component*/, std::uint32_t /*level*/) {
    return {};
}

std::string Logger::lineSuffix(const LoggerComponent& /*component*/, std::uint32_t /*level*/) {
    return {};
}

std::uint32_t Logger::cachedSwitch(const std::string& name, std::uint32_t defaultValue) {
    CachedSwitch& entry = *switches_.use([&](auto& switches) { return &switches[name]; });
    const DWORD tick = GetTickCount();
    if (const auto cached = entry.value(tick)) return *cached;
    std::uint32_t value = defaultValue;
    readSwitch(name, value, defaultValue);
    entry.store(value, tick);
    return value;
}

bool Logger::isOn(const setting::Number& number) {
    return cachedSwitch(number.name, number.defaultValue) != 0;
}

bool Logger::isEnabled(const LoggerComponent& component, std::uint32_t level) {
    if (loggingKilled) return false;
    if ((level & kLogError) != 0) return true;
    if (!isOn(setting::kStartLog)) return false;
    const std::uint32_t all = cachedSwitch(setting::kLogAll.name, component::kAll.defaultMask());
    const std::uint32_t own = cachedSwitch(component.name(), component.defaultMask());
    return (level & (all | own)) != 0;
}

std::string Logger::formatLine(const LoggerComponent& component, std::uint32_t level,
                               const char* text) {
    const std::string name = component.name();
    LogHeader header;
    if (isOn(setting::kLogClockTime)) header.time = localTime();
    if (isOn(setting::kLogProcessId)) header.processId = GetCurrentProcessId();
    if (isOn(setting::kLogThreadId)) header.threadId = GetCurrentThreadId();
    header.component = name;
    header.componentWidth = nameWidth_;
    header.depth = depths_.use([](auto& depths) { return depths[GetCurrentThreadId()]; });
    return linePrefix(component, level) + formatLogLine(header, text != nullptr ? text : "") +
           lineSuffix(component, level) + "\r\n";
}

void Logger::increaseDepth() {
    depths_.use([](auto& depths) { ++depths[GetCurrentThreadId()]; });
}

void Logger::decreaseDepth() {
    depths_.use([](auto& depths) { --depths[GetCurrentThreadId()]; });
}

void Logger::forgetSwitches() {
    switches_.use([](auto& switches) {
        for (auto& [name, entry] : switches) entry.clear();
    });
}

}  // namespace jsw
