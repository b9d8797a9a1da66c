#pragma once

#include "PublicLib/locks/Locked.h"

#include <string>

namespace jsw {

struct JobText {
    std::string friendlyName{};
    /// The billboard that the INK_STATUS action shows.
    std::string inkStatusId = "INK_STATUS";
    /// The last billboard shown that is not an ink status page; empty before.
    std::string currentId{};
    /// The billboard on screen.
    std::string displayedId{};
};

/// A job's texts, which several threads share. Each goes in and out as a copy, so the lock is never
/// held while foreign code runs.
class JobTexts {
  public:
    /// Begins a new job.
    void reset(const JobText& texts) {
        texts_.use([&](JobText& all) { all = texts; });
    }
    std::string get(std::string JobText::*text) {
        return texts_.use([&](JobText& all) { return all.*text; });
    }
    void set(std::string JobText::*text, const std::string& value) {
        texts_.use([&](JobText& all) { all.*text = value; });
    }

  private:
    Locked<JobText> texts_;
};

}  // namespace jsw
