/**
 * @file ViewState.h
 * What the window knows about one job, shared between the host's threads and the window's thread.
 *
 * One lock guards all of it. It is never held while the host is called back or while a message is
 * sent: posting one, which never waits, is all that happens under it.
 *
 * What the window has to tell the host goes through a queue that a thread of its own empties: a
 * host that takes its time does not keep the window from being drawn, moved and closed.
 */
#pragma once

#include "window/view/JobData.h"
#include <jsw/view.h>

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace jsw::view {

/** Posted to the window when the state has changed, and when the job is over. */
inline constexpr UINT kMessageRefresh = WM_APP + 1;
inline constexpr UINT kMessageClose = WM_APP + 2;

/** The host's functions; null ones are not called. */
struct HostCallbacks {
    JswViewEventCallback event = nullptr;
    JswViewBillboardCallback billboard = nullptr;
    JswViewSaveAppearanceCallback saveAppearance = nullptr;
    JswViewSaveValueCallback saveValue = nullptr;
    JswViewUpdateSoftwareCallback updateSoftware = nullptr;
};

/** The state of one job, from Initialize to Uninitialize. All methods may be called anywhere. */
class ViewState : public std::enable_shared_from_this<ViewState> {
  public:
    /** Calls change(JobData&) under the lock, then has the window look at the result. */
    template <typename Change>
    void change(Change&& change) {
        const std::lock_guard lock(mutex_);
        std::forward<Change>(change)(data_);
        requestRefresh();
    }

    template <typename Callback>
    void setCallback(Callback HostCallbacks::*member, Callback callback) {
        const std::lock_guard lock(mutex_);
        callbacks_.*member = callback;
    }

    /** Calls one of the host's functions without the lock; nothing once the job is closed. */
    template <typename Callback, typename... Arguments>
    void callHost(Callback HostCallbacks::*member, Arguments... arguments) {
        const CallbackScope scope(*this);
        if (const Callback callback = scope.allowed() ? copyOf(member) : nullptr) {
            callback(arguments...);
        }
    }

    /** The same, soon and in this order, without waiting for it; arguments are copied. */
    template <typename Callback, typename... Arguments>
    void callHostLater(Callback HostCallbacks::*member, Arguments... arguments) {
        enqueue([this, member, arguments...] { callHost(member, passable(arguments)...); });
    }

    /** Hides the window; the host keeps its place for later jobs. */
    void hide();

    /** Ends the job: the window is told to close, and the host is not called back any more. */
    void close();

    /**
     * Lets what is under way end, for a moment: the host may be waiting for this very call, and
     * need not wait for a window. Does not wait for a callback that has led here.
     */
    void waitUntilClosed();

    // For the thread of the window.

    /** Shows the window; true when a thread must be started for it (then threadEnded is owed). */
    [[nodiscard]] bool show();
    /** Tells where refresh messages go; false when the job is closed already. */
    [[nodiscard]] bool attachWindow(HWND window);
    void detachWindow();
    void threadEnded();

    /** A copy of the data for the window; its restoreWanted is thereby dealt with. */
    [[nodiscard]] JobData takeData();

    /** Notes where the window is and how large. */
    void moved(const SavedPlace& place);
    /** Has the host keep the window's place unless it has it already. */
    void savePlace();
    /** The same through the queue. */
    void savePlaceLater();

  private:
    static const char* passable(const std::string& text) { return text.c_str(); }
    static std::int32_t passable(std::int32_t number) { return number; }

    void enqueue(std::function<void()> call);
    void emptyQueue();
    [[nodiscard]] std::optional<SavedPlace> placeToSave();

    /** Counts a running callback, so that closing the job can wait for its end. */
    class CallbackScope {
      public:
        explicit CallbackScope(ViewState& state);
        ~CallbackScope();
        CallbackScope(const CallbackScope&) = delete;
        CallbackScope& operator=(const CallbackScope&) = delete;
        [[nodiscard]] bool allowed() const { return allowed_; }

      private:
        ViewState& state_;
        bool allowed_;
    };

    template <typename Callback>
    Callback copyOf(Callback HostCallbacks::*member) {
        const std::lock_guard lock(mutex_);
        return callbacks_.*member;
    }

    /** Posts kMessageRefresh unless one is on its way; the lock is held. */
    void requestRefresh();

    mutable std::mutex mutex_;
    std::condition_variable idle_; /**< the thread has ended or a callback has begun or ended */
    JobData data_;
    HostCallbacks callbacks_;
    std::deque<std::function<void()>> calls_; /**< for the host */
    DWORD queueThread_ = 0;                   /**< that empties the queue */
    bool queueRunning_ = false;
    SavedPlace place_;
    SavedPlace savedPlace_;
    HWND window_ = nullptr;
    int callbacksRunning_ = 0;
    bool threadRunning_ = false;
    bool refreshPosted_ = false;
    bool closed_ = false;
};

}  // namespace jsw::view
