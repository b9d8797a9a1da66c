#pragma once

#include "jsw/JobTexts.h"
#include "jsw/Thread.h"
#include "jsw/modules/BillboardView.h"
#include "jsw/modules/Job.h"
#include "jsw/modules/JobSession.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace jsw {

class LegacyJswGui;

/// What the catalog says about one billboard.
struct BillboardData {
    std::string fileName;  ///< relative to the scripts folder; empty if there is none
    std::string type;      ///< "standard", "ink", "ink_status" or another, special one
    bool navigate = false;
    bool restore = false;
};

/// Carries one print job from JSWInit to JSWTerminate. The jsw… operations run on the driver's
/// threads, one at a time; update() and doBillboardCallback() on threads of the view module;
/// ProcessRules() on a worker thread of its own, one per job.
class Controller : public Observer, public BillboardActions {
  public:
    static std::shared_ptr<Controller> instance();
    static void destroy();

    Controller();
    ~Controller() override;
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    // The job (Controller.cpp).

    /// Shows the window and starts the rules; false if the job must run without them.
    [[nodiscard]] bool jswInit(const Job& job);
    void jswTerminate();
    /// The fourth and fifth value are not used.
    void jswUpdateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                       std::uint32_t value4, std::uint32_t value5, void* data);
    /// Returns when the prompt is answered.
    void jswDisplayPrompt(std::uint32_t promptType, std::uint32_t totalPages);
    /// Does nothing without a prompt.
    void jswPostDlgMsg(void* message);
    /// The view's window reports an event.
    void update(Subject* subject, const WindowEvent& event) override;

    bool isChoosing() const override;

    // Billboards (ControllerBillboards.cpp).

    /// Shows a billboard; only logs if its id is not valid. May be called on any thread.
    void changeBillboard(const std::string& bbId);
    /// Whether the catalog has a file for the id and the file can be read.
    bool isBillboardIdValid(const std::string& bbId);

    // What the user clicks (ControllerActions.cpp).

    void doBillboardCallback(const std::string& action, std::uint32_t actionId) override;

  private:
    std::string determineDataPath() const;
    std::string determineInitialBillboard() const;
    void setDataPath(const std::string& path);
    void stopRules();
    [[nodiscard]] bool startRules();
    void ProcessRules();

    /// Nothing if the id is not valid.
    [[nodiscard]] std::optional<BillboardData> getBillboardData(const std::string& bbId);
    BillboardData getDefaultBillboardData();
    BillboardData lookUpDefaultBillboard();
    BillboardData readDefaultBillboard(const std::string& fileName);

    void launchApp(std::uint32_t actionId);
    void launchUrl(std::uint32_t actionId);
    void walkHistory(const std::string& bbId, MethodTrace& trace);

    std::shared_ptr<BillboardView> view_;  // held until this object has detached from it
    std::string dataPath_;
    std::atomic<bool> stop_{false};
    std::shared_ptr<LegacyJswGui> legacyGui_;  // while a prompt is open
    std::string defaultBillboardId_;
    JobTexts texts_;

    Job job_{};  // as the rules see it: written before their thread starts
    std::unique_ptr<RunnableMethod<Controller>> rulesRunnable_;
    std::unique_ptr<Thread> rulesThread_;  // destroyed first, which waits for its end
};

}  // namespace jsw
