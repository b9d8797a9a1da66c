#include "window/view/ViewState.h"

#include "window/view/ModuleThread.h"

#include <chrono>

namespace jsw::window {
namespace {

/** How long the end of a job waits for the window; enough for one that is not busy. */
constexpr std::chrono::milliseconds kWindowWait{500};

/**
 * How long it waits for a running host function: its code may be unloaded afterwards, but it may
 * itself be waiting for the end of the job.
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
    // Inside a callback, this callback is one of the running ones.
    const int ours = queueRunning_ && queueThread_ == GetCurrentThreadId() ? 1 : 0;
    idle_.wait_for(lock, kCallbackWait, [&] { return callbacksRunning_ <= ours; });
    idle_.wait_for(lock, kWindowWait, [&] { return !threadRunning_; });
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
    idle_.notify_all();
}

JobData ViewState::takeData() {
    const std::lock_guard lock(mutex_);
    refreshPosted_ = false;
    JobData copy = data_;
    data_.restoreWanted = false;
    return copy;
}

void ViewState::moved(const SavedPlace& place) {
    const std::lock_guard lock(mutex_);
    place_ = place;
}

std::optional<SavedPlace> ViewState::placeToSave() {
    const std::lock_guard lock(mutex_);
    if (place_ == savedPlace_) return std::nullopt;
    savedPlace_ = place_;
    return place_;
}

void ViewState::savePlace() {
    const auto place = placeToSave();
    if (!place) return;
    for (const auto& [name, value] : place->values()) {
        callHost(&HostCallbacks::saveValue, name, value.c_str());
    }
}

void ViewState::savePlaceLater() {
    enqueue([this] { savePlace(); });
}

void ViewState::enqueue(std::function<void()> call) {
    {
        const std::lock_guard lock(mutex_);
        if (closed_) return;
        calls_.push_back(std::move(call));
        if (std::exchange(queueRunning_, true)) return;
    }
    // The calls refer to this object, so the thread holds it.
    const auto self = shared_from_this();
    if (!startModuleThread([self] { self->emptyQueue(); })) emptyQueue();
}

void ViewState::emptyQueue() {
    while (true) {
        std::function<void()> call;
        {
            const std::lock_guard lock(mutex_);
            queueThread_ = GetCurrentThreadId();
            queueRunning_ = !calls_.empty();
            if (!queueRunning_) return;
            call = std::move(calls_.front());
            calls_.pop_front();
        }
        try {
            call();
        } catch (...) {
            // An exception of the host, or out of memory; the next call may succeed.
        }
    }
}

void ViewState::requestRefresh() {
    if (!window_ || refreshPosted_) return;
    refreshPosted_ = PostMessageA(window_, kMessageRefresh, 0, 0) != FALSE;
}

}  // namespace jsw::window
