#pragma once

#include <chrono>
#include <mutex>
#include <string>

namespace jsw::qldemo {

/** The demo's report on standard output: one line per event, from any thread. */
class Console {
  public:
    /** Restarts the clock in the lines. */
    void startClock();

    /** Seconds since the clock was started. */
    [[nodiscard]] double elapsed() const;

    /** "[  1.52] driver   page 2 of 3" */
    void line(const std::string& who, const std::string& text);

    /** A line without time and author. */
    void plain(const std::string& text);

  private:
    void write(const std::string& text);

    mutable std::mutex mutex_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

/** The one console of the process. */
[[nodiscard]] Console& console();

}  // namespace jsw::qldemo
