#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <mutex>
#include <string>

namespace jsw {

/// The texts of a job that several threads share. Values are copied in and out, so the lock is
/// never held across another call.
class JobTexts {
  public:
    /// A new job begins, with this billboard on screen.
    void reset(const std::string& friendlyName, const std::string& defaultBillboardId) {
        const std::lock_guard lock(lock_);
        friendlyName_ = friendlyName;
        inkStatusId_ = kInkStatusId;
        currentId_.clear();
        displayedId_ = defaultBillboardId;
    }

    std::string friendlyName() const { return get(friendlyName_); }
    /// The billboard that the INK_STATUS action shows.
    std::string inkStatusId() const { return get(inkStatusId_); }
    /// The last billboard shown that is not an ink status page; empty before.
    std::string currentId() const { return get(currentId_); }
    /// The billboard on screen.
    std::string displayedId() const { return get(displayedId_); }

    void setInkStatusId(const std::string& id) { set(inkStatusId_, id); }
    void setCurrentId(const std::string& id) { set(currentId_, id); }
    void setDisplayedId(const std::string& id) { set(displayedId_, id); }

  private:
    static constexpr char kInkStatusId[] = "INK_STATUS";

    std::string get(const std::string& text) const {
        const std::lock_guard lock(lock_);
        return text;
    }
    void set(std::string& text, const std::string& value) {
        const std::lock_guard lock(lock_);
        text = value;
    }

    mutable CriticalSection lock_;
    std::string friendlyName_;
    std::string inkStatusId_ = kInkStatusId;
    std::string currentId_;
    std::string displayedId_;
};

}  // namespace jsw
