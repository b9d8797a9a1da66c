#include "PublicLib/calls/NoWaiting.h"

#include <utility>

namespace jsw {

NoWaiting::NoWaiting()
    : guard_(EntryGuard::current()),
      before_(guard_ != nullptr && std::exchange(guard_->mustNotWait_, true)) {
}

NoWaiting::~NoWaiting() {
    if (guard_ != nullptr) guard_->mustNotWait_ = before_;
}

bool NoWaiting::holdsHere() {
    const EntryGuard* guard = EntryGuard::current();
    while (guard != nullptr && !guard->mustNotWait_) guard = guard->outer_;
    return guard != nullptr;
}

}  // namespace jsw
