#include "jsw/modules/Subject.h"

#include "PublicLib/logging/MethodTrace.h"

#include <mutex>

namespace jsw {

void Subject::attach(Observer* observer) {
    MethodTrace trace(component::kJsw, "Subject::attach: ");
    const std::lock_guard lock(lock_);
    observers_.push_back(observer);
}

void Subject::detach(Observer* observer) {
    MethodTrace trace(component::kJsw, "Subject::detach: ");
    const std::lock_guard lock(lock_);
    std::erase(observers_, observer);
}

void Subject::notify(const WindowEvent& event) {
    MethodTrace trace(component::kJsw, "Subject::notify: ");
    std::vector<Observer*> observers;
    {
        const std::lock_guard lock(lock_);
        observers = observers_;
    }
    for (Observer* observer : observers) observer->update(this, event);
}

}  // namespace jsw
