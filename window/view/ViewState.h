/**
 * @file ViewState.h
 * The state of one job, shared by the host's threads and the window's thread.
 *
 * One lock guards all of it. It is never held during a call to the host or while a message is sent;
 * messages are only posted under it, which never waits.
 *
 * Reports to the host go through a queue that a separate thread empties, so a slow host does not
 * block the window.
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

namespace jsw::window {

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

/** The state of one job, from Initialize to Uninitialize. Thread-safe. */
class ViewState : public std::enable_shared_from_this<ViewState> {
  public:
    /** Calls change(JobData&) under the lock, then makes the window refresh. */
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

    /** Calls one of the host's functions without the lock; does nothing after the job is closed. */
    template <typename Callback, typename... Arguments>
    void callHost(Callback HostCallbacks::*member, Arguments... arguments) {
        const CallbackScope scope(*this);
        if (const Callback callback = scope.allowed() ? copyOf(member) : nullptr) {
            callback(arguments...);
        }
    }

    /** The same, asynchronously and in order; arguments are copied. */
    template <typename Callback, typename... Arguments>
    void callHostLater(Callback HostCallbacks::*member, Arguments... arguments) {
        enqueue([this, member, arguments...] { callHost(member, passable(arguments)...); });
    }

    /** Hides the window; the host saves its position for later jobs. */
    void hide();

    /** Ends the job: the window closes, and the host is not called back any more. */
    void close();

    /**
     * Waits a moment for the window and running callbacks to end; not longer, because the host may
     * be waiting for this very call. Does not wait for a callback that has led here.
     */
    void waitUntilClosed();

    // For the window's thread.

    /**
     * Shows the window; true if the caller must start a thread for it, which must call threadEnded.
     */
    [[nodiscard]] bool show();
    /** Sets the target of refresh messages; false if the job is already closed. */
    [[nodiscard]] bool attachWindow(HWND window);
    void detachWindow();
    void threadEnded();

    /** A copy of the data for the window; resets restoreWanted. */
    [[nodiscard]] JobData takeData();

    /** Stores the window's position and size. */
    void moved(const SavedPlace& place);
    /** Makes the host save the window's position, unless it already has it. */
    void savePlace();
    /** The same through the queue. */
    void savePlaceLater();

  private:
    static const char* passable(const std::string& text) { return text.c_str(); }
    static std::int32_t passable(std::int32_t number) { return number; }

    void enqueue(std::function<void()> call);
    void emptyQueue();
    [[nodiscard]] std::optional<SavedPlace> placeToSave();

    /** Counts a running callback, so that closing the job can wait for it. */
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

    /** Posts kMessageRefresh unless one is pending. Called under the lock. */
    void requestRefresh();

    mutable std::mutex mutex_;
    std::condition_variable idle_; /**< the thread has ended, or a callback has begun or ended */
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

}  // namespace jsw::window
