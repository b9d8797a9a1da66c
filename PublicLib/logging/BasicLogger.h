#pragma once

#include "PublicLib/logging/Logger.h"
#include "PublicLib/text/Text.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

namespace jsw {

/// The process's log, "<folder of all users>\<local id>JSW.log", with its switches in the registry.
class BasicLogger : public Logger {
  public:
    /// The file's full path. Localize must exist.
    static std::string filePath();
    /// Creates the log, which determines its file again, unless there is one. Localize must exist.
    /// @param mask  stored only: the switches alone decide what is written
    static void createInstance(std::uint32_t mask);
    /// Throws Win32Exception while there is no log.
    static std::shared_ptr<BasicLogger> getInstance();
    /// Ends the log. A thread that is writing a line, or has a trace open, finishes safely.
    static void destroyInstance();
    /// The log, or null.
    static std::shared_ptr<BasicLogger> existing();

    explicit BasicLogger(std::uint32_t mask);

    void readSwitch(const std::string& name, std::uint32_t& value,
                    std::uint32_t defaultValue) override;

    /// Whether a line of this component and level is to be written: not while the settings store
    /// cannot be opened. After the first success the store is assumed to exist.
    bool isWanted(const LoggerComponent& component, std::uint32_t level);
    /// After the settings were installed: reads store and switches again at the next query.
    void recheckStore();

    std::uint32_t mask() const { return mask_; }

  private:
    const std::uint32_t mask_;
    std::atomic<bool> storeSeen_{false};
};

/// Whether a line of this component and level is to be written to the process's log. Very cheap
/// while logging is switched off. False if memory is exhausted.
[[nodiscard]] bool isLogEnabled(const LoggerComponent& component, std::uint32_t level) noexcept;

/// Writes a line to the process's log; only for lines that isLogEnabled() wants.
void writeLogLine(const LoggerComponent& component, std::uint32_t level, const std::string& text);

/// Runs work for the log only. If memory is exhausted, only the line is lost.
template <class Work>
void withoutRaising(const Work& work) noexcept {
    try {
        work();
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the log has no log
    }
}

/// Writes a line, composed only if it is wanted. Never throws, so that destructors may log, too.
template <class... Parts>
void logLine(const LoggerComponent& component, std::uint32_t level,
             const Parts&... parts) noexcept {
    if (!isLogEnabled(component, level)) return;
    withoutRaising([&] { writeLogLine(component, level, concat(parts...)); });
}

}  // namespace jsw
