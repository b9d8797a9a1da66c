#include "jsw/StatusCallback.h"

#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/logging/Guard.h"

#include <atomic>

namespace jsw {

namespace {

std::atomic<JswStatusCallback> current{nullptr};

constexpr char kName[] = "the driver's status callback";

}  // namespace

void setStatusCallback(JswStatusCallback callback) {
    current = callback;
}

void reportStatus(std::uint32_t status) {
    const JswStatusCallback callback = current;
    if (callback == nullptr) return;
    CallEnd end{};
    callForeign(
        component::kJsw, kName,
        [&] { runGuarded(component::kJsw, "jswCallback", [&] { callback(status); }); }, end);
}

bool isInsideStatusCallback() {
    return ForeignCall::isInside(kName);
}

}  // namespace jsw
