#include "jsw/modules/JobSession.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/calls/NoWaiting.h"
#include "PublicLib/logging/Guard.h"
#include "jsw/modules/BillboardView.h"

#include <utility>

namespace jsw {

namespace {

NeverDestroyed<std::atomic<std::shared_ptr<JobSession>>> presentSession;

}  // namespace

JobSession::JobSession(std::shared_ptr<BillboardView> view,
                       std::shared_ptr<BillboardActions> actions, JswStatusCallback callback)
    : view_(std::move(view)), actions_(std::move(actions)), callback_(callback) {
}

std::shared_ptr<JobSession> JobSession::present() {
    return presentSession->load();
}

void JobSession::setPresent(std::shared_ptr<JobSession> session) {
    presentSession->store(std::move(session));
}

void JobSession::report(std::uint32_t status) const {
    const JswStatusCallback callback = callback_;
    if (callback == nullptr) return;
    const NoWaiting inTheDriver;
    CallEnd end{};
    callForeign(
        component::kJsw, "the driver's status callback",
        [&] { runGuarded(component::kJsw, "jswCallback", [&] { callback(status); }); }, end);
}

}  // namespace jsw
