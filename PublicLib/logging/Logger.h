#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/logging/LogFile.h"
#include "PublicLib/logging/LogSwitches.h"
#include "PublicLib/logging/LoggerComponent.h"
#include "PublicLib/logging/SwitchCache.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace jsw {

/// Appends formatted lines to one log file. Every thread may use it. Nothing that goes wrong while
/// a line is written reaches the caller: the line is dropped.
class Logger {
  public:
    /// Columns for the component's name in the files of this library.
    static constexpr unsigned kNameWidth = 25;

    /// @param path       the file; without any backslash it lies in the root of the Windows drive
    /// @param nameWidth  columns for the component's name
    /// A file that cannot be set up ends all logging of the process.
    Logger(const std::string& path, unsigned nameWidth);
    virtual ~Logger();
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    /// Appends one line, whatever the switches say; callers ask isEnabled() first.
    virtual void log(const LoggerComponent& component, std::uint32_t level,
                     const std::string& text);
    virtual void log(const LoggerComponent& component, std::uint32_t level, const char* text);
    virtual void deleteLog();
    /// Reads a switch afresh; the base knows only whether its file can be read ("startLog").
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
    /// Forgets the switches that were read.
    void forgetSwitches();

  private:
    std::uint32_t cachedSwitch(const std::string& name, std::uint32_t defaultValue);
    bool isOn(const setting::Number& number);
    std::string formatLine(const LoggerComponent& component, std::uint32_t level, const char* text);
    unsigned depth();

    std::unique_ptr<LogFile> file_;  // null after a failed set-up
    unsigned nameWidth_;
    CriticalSection lock_;
    std::map<std::uint32_t, unsigned> depths_;  // by thread id
    SwitchCache switches_;
};

}  // namespace jsw
