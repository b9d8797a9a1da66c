#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <mutex>
#include <string>
#include <utility>

namespace jsw {

/// The billboard ids that a job's threads share. Values go in and out as copies, so the lock is
/// never held across a call to anybody else.
class BillboardIds {
  public:
    std::string inkStatus() const { return get(inkStatus_); }
    /// Last one shown that is no ink status page; empty before.
    std::string current() const { return get(current_); }
    /// The one on screen.
    std::string displayed() const { return get(displayed_); }

    void setInkStatus(const std::string& id) { set(inkStatus_, id); }
    void setCurrent(const std::string& id) { set(current_, id); }
    void setDisplayed(const std::string& id) { set(displayed_, id); }

  private:
    std::string get(const std::string& id) const {
        const std::lock_guard lock(lock_);
        return id;
    }
    void set(std::string& id, const std::string& value) {
        const std::lock_guard lock(lock_);
        id = value;
    }

    mutable CriticalSection lock_;
    std::string inkStatus_ = "INK_STATUS";
    std::string current_;
    std::string displayed_;
};

}  // namespace jsw
