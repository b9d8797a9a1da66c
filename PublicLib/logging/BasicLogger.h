#pragma once

#include "PublicLib/logging/Logger.h"
#include "PublicLib/text/Text.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

namespace jsw {

/// The log of the process, "<folder of all users>\<local id>JSW.log", with its switches in the
/// registry.
class BasicLogger : public Logger {
  public:
    /// The file's full name. Localize must exist.
    static std::string filePath();
    /// Makes the log, which finds its file afresh, unless there is one. Localize must exist.
    /// @param mask  kept only: what is written is decided by the switches alone
    static void createInstance(std::uint32_t mask);
    /// Throws Win32Exception while there is no log.
    static std::shared_ptr<BasicLogger> getInstance();
    /// Ends the log. A thread that is writing a line, or has a trace open, finishes safely.
    static void destroyInstance();
    /// The log, or null while there is none.
    static std::shared_ptr<BasicLogger> existing();

    explicit BasicLogger(std::uint32_t mask);

    void readSwitch(const std::string& name, std::uint32_t& value,
                    std::uint32_t defaultValue) override;

    /// Whether a line of this component and level is to be written: not while the settings store
    /// cannot be opened. Once it could, that is taken for granted.
    bool isWanted(const LoggerComponent& component, std::uint32_t level);
    /// Reads store and switches afresh at the next question, after they have been installed.
    void recheckStore();

    std::uint32_t mask() const { return mask_; }

  private:
    const std::uint32_t mask_;
    std::atomic<bool> storeSeen_{false};
};

/// Whether a line of this component and level is to be written to the process's log. Costs next to
/// nothing while logging is switched off. Where memory is too short to tell, it is not.
bool isLogEnabled(const LoggerComponent& component, std::uint32_t level) noexcept;

/// Writes a line to the process's log; only for lines that isLogEnabled() wants.
void writeLogLine(const LoggerComponent& component, std::uint32_t level, const std::string& text);

/// Runs what belongs to the log alone and may lack the memory for it: the line is lost then, and
/// nothing else.
template <class Work>
void withoutRaising(const Work& work) noexcept {
    try {
        work();
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): there is no log for the log
    }
}

/// Writes a line, joined from its parts only when it is wanted. Never raises, so that destructors
/// may log, too.
template <class... Parts>
void logLine(const LoggerComponent& component, std::uint32_t level,
             const Parts&... parts) noexcept {
    if (!isLogEnabled(component, level)) return;
    withoutRaising([&] { writeLogLine(component, level, concat(parts...)); });
}

}  // namespace jsw
