#include "jsw/StatusCallback.h"

#include <atomic>

namespace jsw {

namespace {
std::atomic<JswStatusCallback> current{nullptr};
}

void setStatusCallback(JswStatusCallback callback) {
    current = callback;
}

JswStatusCallback statusCallback() {
    return current;
}

}  // namespace jsw
