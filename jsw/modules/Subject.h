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

/// Gets the events of a subject.
class Observer {
  public:
    virtual ~Observer() = default;
    /// Called on the thread of the event.
    virtual void update(Subject* subject, const WindowEvent& event) = 0;
};

/// Notifies its observers of events. Does not own them: they detach before they are destroyed.
class Subject {
  public:
    virtual ~Subject() = default;
    virtual void attach(Observer* observer);
    virtual void detach(Observer* observer);
    /// Calls every observer that is attached at this moment. Holds no lock, so an observer may
    /// attach, detach or notify.
    virtual void notify(const WindowEvent& event);

  private:
    CriticalSection lock_;  // of observers_
    std::vector<Observer*> observers_;
};

}  // namespace jsw
