#pragma once

#include "PublicLib/locks/Locked.h"
#include "PublicLib/logging/CachedSwitch.h"
#include "PublicLib/logging/LogFile.h"
#include "PublicLib/logging/LogSwitches.h"
#include "PublicLib/logging/LoggerComponent.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace jsw {

/// Appends formatted lines to one log file. Thread-safe. A line that cannot be written is dropped;
/// no failure reaches the caller.
class Logger {
  public:
    /// Columns for the component's name in the files of this library.
    static constexpr unsigned kNameWidth = 25;

    /// @param path       the file; without a backslash in the root of the Windows drive
    /// @param nameWidth  columns for the component's name
    /// If the file cannot be set up, the process logs nothing any more.
    Logger(const std::string& path, unsigned nameWidth);
    virtual ~Logger();
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    /// Appends one line, whatever the switches; callers check isEnabled() first.
    virtual void log(const LoggerComponent& component, std::uint32_t level,
                     const std::string& text);
    virtual void log(const LoggerComponent& component, std::uint32_t level, const char* text);
    virtual void deleteLog();
    /// Reads a switch; the base class only has "startLog", on if its file could be set up.
    virtual void readSwitch(const std::string& name, std::uint32_t& value,
                            std::uint32_t defaultValue);
    virtual void onLogFileMissing();
    virtual std::string linePrefix(const LoggerComponent& component, std::uint32_t level);
    virtual std::string lineSuffix(const LoggerComponent& component, std::uint32_t level);

    /// Whether a line of this component and level is to be written.
    bool isEnabled(const LoggerComponent& component, std::uint32_t level);

    /// Moves the lines of the calling thread one column to the right, or back.
    void increaseDepth();
    void decreaseDepth();

  protected:
    /// Discards the cached switches.
    void forgetSwitches();

  private:
    std::uint32_t cachedSwitch(const std::string& name, std::uint32_t defaultValue);
    bool isOn(const setting::Number& number);
    std::string formatLine(const LoggerComponent& component, std::uint32_t level, const char* text);

    std::unique_ptr<LogFile> file_;  // null after a failed set-up
    unsigned nameWidth_;
    Locked<std::map<std::uint32_t, unsigned>> depths_;      // by thread id
    Locked<std::map<std::string, CachedSwitch>> switches_;  // by name; none is ever taken out
};

}  // namespace jsw
