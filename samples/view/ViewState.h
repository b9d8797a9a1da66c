/**
 * @file ViewState.h
 * What the window knows about one job, shared between the host's threads and the window's thread.
 *
 * One lock guards all of it. It is never held while the host is called back or while a message is
 * sent: posting one, which never waits, is all that happens under it.
 */
#pragma once

#include "jsw/view.h"
#include "samples/view/StatusText.h"
#include "samples/view/WindowPlace.h"

#include <windows.h>

#include <array>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <utility>

namespace sampleview {

/** Posted to the window when the state has changed, and when the job is over. */
inline constexpr UINT kMessageRefresh = WM_APP + 1;
inline constexpr UINT kMessageClose = WM_APP + 2;

/** Everything the window shows. */
struct JobData {
    std::string dataPath;
    std::string jobName;
    std::string printerName;
    Progress progress;
    std::array<std::int32_t, JSW_INK_SLOTS> inkPercents = noInkLevels();
    std::array<bool, 2> reserveMode{}; /**< of cartridge 1 and 2 */

    std::string billboard;             /**< file name; empty: none */
    std::uint32_t billboardSerial = 0; /**< counts the requests to display one */
    bool navigation = false;

    bool visible = false;
    bool startMinimized = false;
    bool restoreWanted = false; /**< a billboard asked for the window since it was shown */
    bool showSpecialMessages = true;
    bool updateSoftware = false;
    bool cancelling = false;

    std::optional<int> savedX; /**< from an earlier job */
    std::optional<int> savedY;

    static constexpr std::array<std::int32_t, JSW_INK_SLOTS> noInkLevels() {
        std::array<std::int32_t, JSW_INK_SLOTS> levels{};
        for (auto& level : levels) level = -1;
        return levels;
    }
};

/** The host's functions; null ones are not called. */
struct HostCallbacks {
    JswViewEventCallback event = nullptr;
    JswViewBillboardCallback billboard = nullptr;
    JswViewSaveAppearanceCallback saveAppearance = nullptr;
    JswViewSaveValueCallback saveValue = nullptr;
    JswViewUpdateSoftwareCallback updateSoftware = nullptr;
};

/** The state of one job, from Initialize to Uninitialize. All methods may be called anywhere. */
class ViewState {
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

    /** Hides the window and keeps its place for later jobs. */
    void hide();

    /** Ends the job: the window is told to close, and the host is not called back any more. */
    void close();

    /** Waits for the window to be gone; for a limited time if its thread is stuck in the host. */
    void waitUntilClosed();

    // For the thread of the window.

    /** Shows the window; true when a thread must be started for it (then threadEnded is owed). */
    [[nodiscard]] bool show();
    /** Tells where refresh messages go; false when the job is closed already. */
    [[nodiscard]] bool attachWindow(HWND window);
    void detachWindow();
    void threadEnded();
    [[nodiscard]] bool isWindowThread() const;

    /** A copy of the data for the window; its restoreWanted is thereby dealt with. */
    [[nodiscard]] JobData takeData();

    /** Notes where the window is. */
    void moved(Place place);
    /** Has the host keep the window's place unless it has it already. */
    void savePlace();

  private:
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
    std::optional<Place> place_;
    std::optional<Place> savedPlace_;
    HWND window_ = nullptr;
    DWORD threadId_ = 0;
    int callbacksRunning_ = 0;
    bool threadRunning_ = false;
    bool refreshPosted_ = false;
    bool closed_ = false;
};

}  // namespace sampleview
