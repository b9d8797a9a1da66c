#include "jsw/StatusCallback.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/calls/ModuleCall.h"
#include "PublicLib/locks/ThreadScoped.h"
#include "PublicLib/logging/Guard.h"

#include <atomic>

namespace jsw {

namespace {

std::atomic<JswStatusCallback> current{nullptr};

struct Inside {};
NeverDestroyed<ThreadScoped<Inside>> callbacks;

}  // namespace

void setStatusCallback(JswStatusCallback callback) {
    current = callback;
}

void reportStatus(std::uint32_t status) {
    const JswStatusCallback callback = current;
    if (callback == nullptr) return;
    const ThreadScoped<Inside>::Scope inside(*callbacks);
    CallEnd end{};
    callOut(
        component::kJsw, "the driver's status callback",
        [&] { runGuarded(component::kJsw, "jswCallback", [&] { callback(status); }); }, end);
}

bool isInsideStatusCallback() {
    return callbacks->innermost() != nullptr;
}

}  // namespace jsw
