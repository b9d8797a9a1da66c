#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <utility>

namespace jsw {

/// Levels of log lines, combined in a mask.
enum LogLevel : std::uint32_t {
    kLogError = 1,        ///< always written, whatever the switches
    kLogTrace = 2,        ///< entry and exit of methods
    kLogDetail = 4,       ///< dumps, such as the ink record
    kLogTraceLine = 8,    ///< lines added to a method trace
    kLogModuleCall = 16,  ///< ">>> " and "<<< " around calls into modules
    kLogRules = 32,       ///< how billboards are chosen
};

/// A component that logs. Its name is also the registry value of its switch.
class LoggerComponent {
  public:
    /// @param defaultMask  levels enabled if the registry has no value
    LoggerComponent(std::string name, std::uint32_t defaultMask)
        : name_(std::move(name)), defaultMask_(defaultMask) {}

    virtual std::string name() const { return name_; }
    virtual void setMask(std::uint32_t mask) { defaultMask_ = mask; }
    virtual std::uint32_t defaultMask() const { return defaultMask_; }
    virtual ~LoggerComponent() = default;

    LoggerComponent(const LoggerComponent&) = delete;
    LoggerComponent& operator=(const LoggerComponent&) = delete;

  private:
    std::string name_;
    std::atomic<std::uint32_t> defaultMask_;
};

/// All components. "All" is not a component: its mask is added to every other one's.
namespace component {
extern LoggerComponent kAll;
extern LoggerComponent kJsw;
extern LoggerComponent kRulesEngine;
extern LoggerComponent kCatalog;
extern LoggerComponent kUpdater;
}  // namespace component

}  // namespace jsw
