#include "jsw/StatusCallback.h"

#include <atomic>

namespace jsw {

namespace {

std::atomic<JswStatusCallback> current{nullptr};
thread_local int depth = 0;

/// Counts the callbacks that this thread is in, also when one of them raises.
class Inside {
  public:
    Inside() { ++depth; }
    ~Inside() { --depth; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
};

}  // namespace

void setStatusCallback(JswStatusCallback callback) {
    current = callback;
}

void reportStatus(std::uint32_t status) {
    const JswStatusCallback callback = current;
    if (callback == nullptr) return;
    const Inside inside;
    callback(status);
}

bool isInsideStatusCallback() {
    return depth > 0;
}

}  // namespace jsw
