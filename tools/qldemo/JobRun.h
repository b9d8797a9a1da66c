#pragma once

#include "tools/qldemo/DemoOptions.h"
#include "tools/qldemo/DemoScript.h"
#include "tools/qldemo/JswLibrary.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace jsw::qldemo {

/**
 * One print job, with its driver and its user.
 *
 * The driver's steps run on the thread that calls run(), the user's on another thread, so that a
 * prompt, which blocks the driver, can be answered. While a prompt is open, its message loop serves
 * a timer of the driver; on it the script's messages for the prompt, and its end of the job, run
 * inside the prompt. Pages wait for the answer. If the user cancels, the remaining pages are
 * dropped and the job ends shortly afterwards.
 *
 * One job runs at a time: the library's status callback has no context argument.
 */
class JobRun {
  public:
    JobRun(const JswLibrary& library, const DemoOptions& options, std::vector<Step> plan);
    JobRun(const JobRun&) = delete;
    JobRun& operator=(const JobRun&) = delete;

    /** Blocks until the job is over. False if the job did not start or a step was impossible. */
    bool run();

  private:
    static void onStatus(uint32_t status);
    static void CALLBACK onPromptTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);

    bool start();
    [[nodiscard]] double timeOf(const Step& step) const;
    [[nodiscard]] bool isDue(const Step& step) const;
    void runDueDriverSteps();
    void doDriverStep(const Step& step);
    void doPage(const Step& step);
    void doPrompt(uint32_t type);
    [[nodiscard]] bool nobodyAnswers() const;
    void doEnd();
    void dropStepsAfterCancel();
    void waitForUser(double until) const;

    void runUserSteps();
    bool doUserStep(const Step& step);
    bool takeScreenshot(const std::string& name);

    static JobRun* current_;                             ///< for the driver's thread only
    static inline std::atomic<bool> cancelled_ = false;  ///< set from the library's threads

    const JswLibrary& library_;
    const DemoOptions& options_;
    std::vector<Step> driverSteps_;
    std::vector<Step> userSteps_;
    size_t nextDriverStep_ = 0;
    bool inPrompt_ = false;
    double delay_ = 0;  ///< seconds that prompts have blocked the driver
    double promptSince_ = 0;
    bool promptGivenUp_ = false;
    bool cancelSeen_ = false;
    std::atomic<size_t> nextUserStep_ = 0;
    std::atomic<double> lastUserStep_ = 0;  ///< time of the last one
    std::atomic<bool> ended_ = false;       ///< the driver has ended the job
    std::atomic<bool> over_ = false;        ///< the job is completely over, including prompts
    std::atomic<bool> good_ = true;
};

}  // namespace jsw::qldemo
