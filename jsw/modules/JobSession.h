#pragma once

#include <jsw/jsw.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace jsw {

class BillboardView;

/// The billboards of a job: what the user clicks in one, and the choice of the one to show.
class BillboardActions {
  public:
    virtual ~BillboardActions() = default;
    /// @param action    name of the action, in any letter case
    /// @param actionId  number among the billboard's actions, counted from 0
    /// Called on a thread of the view module.
    virtual void doBillboardCallback(const std::string& action, std::uint32_t actionId) = 0;
    /// Whether a billboard is still being chosen. Ask inside the API gate.
    virtual bool isChoosing() const = 0;
};

/// One job of the driver, from its JSWInit until its window is closed. A callback of the view
/// module holds the present session while it runs and acts through it. So the objects that it uses
/// stay alive, and its reports go to the driver that started this job.
class JobSession {
  public:
    /// @param callback  null: the driver wants no status codes
    JobSession(std::shared_ptr<BillboardView> view, std::shared_ptr<BillboardActions> actions,
               JswStatusCallback callback);
    JobSession(const JobSession&) = delete;
    JobSession& operator=(const JobSession&) = delete;

    /// The job that the module's callbacks belong to, or null. On any thread.
    static std::shared_ptr<JobSession> present();
    static void setPresent(std::shared_ptr<JobSession> session);

    BillboardView& view() const { return *view_; }
    BillboardActions& actions() const { return *actions_; }

    /// Calls the driver's status callback on this thread, if there is one and the job's end is not
    /// complete.
    void report(std::uint32_t status) const;

    /// Whether the driver's calls act on it: it has started and is not over.
    bool isRunning() const { return stage_ == Stage::running; }
    /// Whether the driver has ended it. For the driver it is then over, on whatever thread the end
    /// runs.
    bool isOver() const { return stage_ == Stage::over; }

    void setRunning() {
        auto expected = Stage::starting;
        stage_.compare_exchange_strong(expected, Stage::running);
    }
    void setOver() { stage_ = Stage::over; }
    /// The end is complete: the driver gets no more status codes of this job.
    void close() { callback_ = nullptr; }

  private:
    enum class Stage { starting, running, over };

    const std::shared_ptr<BillboardView> view_;
    const std::shared_ptr<BillboardActions> actions_;
    std::atomic<JswStatusCallback> callback_;
    std::atomic<Stage> stage_{Stage::starting};
};

}  // namespace jsw
