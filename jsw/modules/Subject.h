#pragma once

#include "PublicLib/locks/CriticalSection.h"

#include <cstdint>
#include <vector>

namespace jsw {

class JobSession;
class Subject;

/// An event of the job window, on its way to the observers.
struct WindowEvent {
    std::uint32_t status;       ///< a JswStatus code, or one of the view module's own
    const JobSession& session;  ///< the job whose window reports
};

/// Wants to know when something happens to a subject.
class Observer {
  public:
    virtual ~Observer() = default;
    /// Called on the thread on which it happened.
    virtual void update(Subject* subject, const WindowEvent& event) = 0;
};

/// Tells its observers when something happens to it. Does not own them: they detach before they go.
class Subject {
  public:
    virtual ~Subject() = default;
    virtual void attach(Observer* observer);
    virtual void detach(Observer* observer);
    /// Calls every observer that is attached at this moment; without holding a lock, so an
    /// observer may attach, detach or notify.
    virtual void notify(const WindowEvent& event);

  private:
    CriticalSection lock_;
    std::vector<Observer*> observers_;
};

}  // namespace jsw
