#pragma once

#include "PublicLib/logging/LogLine.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw::test {

/// Writes a log line by line like the library, for a selectable thread.
class LogText {
  public:
    LogText& process(std::uint32_t id) { return set(header_.processId, id); }
    LogText& thread(std::uint32_t id) { return set(header_.threadId, id); }
    /// Milliseconds since midnight.
    LogText& at(unsigned time) {
        time_ = time;
        return *this;
    }
    LogText& withoutTimes() { return at(kNoTime); }

    /// A line of the component "JSW" at a depth.
    LogText& line(unsigned depth, const std::string& text) {
        header_.time.reset();
        if (time_ != kNoTime) {
            header_.time = LogTime{
                2026,        11, 21, time_ / 3'600'000, time_ / 60'000 % 60, time_ / 1000 % 60,
                time_ % 1000};
        }
        header_.component = "JSW";
        header_.componentWidth = 25;
        header_.depth = depth;
        text_ += formatLogLine(header_, text) + "\r\n";
        return *this;
    }
    /// Raw bytes.
    LogText& raw(const std::string& bytes) {
        text_ += bytes;
        return *this;
    }

    /// A job from its parameters to the teardown, with the lines in between.
    LogText& beginJob(const std::string& name) {
        line(0, "+Controller::jswInit: ");
        line(1, "Params:friendlyName=Office printer jobname=" + name +
                    " jobType=0 currentPage=1 totalPages=3 currentCopy=1 totalCopies=1 portType=0 "
                    "secondsRemaining=90");
        return line(0, "-Controller::jswInit:  rc=1");
    }
    LogText& endJob() {
        line(0, "+Controller::jswTerminate: ");
        line(0, "-Controller::jswTerminate: ");
        return line(0, "<<< SingletonMgr::~SingletonMgr: ");
    }

    const std::string& text() const { return text_; }

  private:
    static constexpr unsigned kNoTime = ~0U;

    LogText& set(std::optional<std::uint32_t>& id, std::uint32_t value) {
        id = value;
        return *this;
    }

    LogHeader header_{};
    unsigned time_ = 36'000'000;
    std::string text_;
};

}  // namespace jsw::test
