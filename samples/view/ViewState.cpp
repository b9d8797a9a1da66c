#include "samples/view/ViewState.h"

#include <chrono>

namespace sampleview {
namespace {

/** How long the end of a job waits for the window's thread. */
constexpr std::chrono::seconds kThreadWait{10};

/**
 * How long it waits when the thread is inside a function of the host, which may itself be waiting
 * for the end of the job.
 */
constexpr std::chrono::seconds kCallbackWait{1};

}  // namespace

ViewState::CallbackScope::CallbackScope(ViewState& state) : state_(state) {
    const std::lock_guard lock(state_.mutex_);
    allowed_ = !state_.closed_;
    if (!allowed_) return;
    ++state_.callbacksRunning_;
    state_.idle_.notify_all();
}

ViewState::CallbackScope::~CallbackScope() {
    if (!allowed_) return;
    const std::lock_guard lock(state_.mutex_);
    --state_.callbacksRunning_;
    state_.idle_.notify_all();
}

void ViewState::hide() {
    change([](JobData& data) { data.visible = false; });
    savePlace();
}

void ViewState::close() {
    savePlace();
    const std::lock_guard lock(mutex_);
    closed_ = true;
    if (window_) PostMessageA(window_, kMessageClose, 0, 0);
}

void ViewState::waitUntilClosed() {
    std::unique_lock lock(mutex_);
    const auto isIdle = [this] { return !threadRunning_ && callbacksRunning_ == 0; };
    idle_.wait_for(lock, kThreadWait, [&] { return isIdle() || callbacksRunning_ > 0; });
    idle_.wait_for(lock, kCallbackWait, isIdle);
}

bool ViewState::show() {
    const std::lock_guard lock(mutex_);
    if (closed_) return false;
    if (!data_.visible) data_.restoreWanted = false;
    data_.visible = true;
    requestRefresh();
    return !std::exchange(threadRunning_, true);
}

bool ViewState::attachWindow(HWND window) {
    const std::lock_guard lock(mutex_);
    if (closed_) return false;
    window_ = window;
    threadId_ = GetCurrentThreadId();
    return true;
}

void ViewState::detachWindow() {
    const std::lock_guard lock(mutex_);
    window_ = nullptr;
    refreshPosted_ = false;
}

void ViewState::threadEnded() {
    const std::lock_guard lock(mutex_);
    threadRunning_ = false;
    threadId_ = 0;
    idle_.notify_all();
}

bool ViewState::isWindowThread() const {
    const std::lock_guard lock(mutex_);
    return threadId_ == GetCurrentThreadId();
}

JobData ViewState::takeData() {
    const std::lock_guard lock(mutex_);
    refreshPosted_ = false;
    JobData copy = data_;
    data_.restoreWanted = false;
    return copy;
}

void ViewState::moved(Place place) {
    const std::lock_guard lock(mutex_);
    place_ = place;
}

void ViewState::savePlace() {
    Place place;
    {
        const std::lock_guard lock(mutex_);
        if (!place_ || place_ == savedPlace_) return;
        savedPlace_ = place_;
        place = *place_;
    }
    callHost(&HostCallbacks::saveValue, "WindowX", std::to_string(place.x).c_str());
    callHost(&HostCallbacks::saveValue, "WindowY", std::to_string(place.y).c_str());
}

void ViewState::requestRefresh() {
    if (!window_ || refreshPosted_) return;
    refreshPosted_ = PostMessageA(window_, kMessageRefresh, 0, 0) != FALSE;
}

}  // namespace sampleview
