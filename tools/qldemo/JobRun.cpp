#include "tools/qldemo/JobRun.h"

#include "tools/qldemo/Console.h"
#include "tools/qldemo/DemoStore.h"
#include "tools/qldemo/StatusNames.h"
#include "tools/qldemo/UserHands.h"
#include "window/prompt/PromptIds.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <iterator>
#include <thread>

namespace jsw::qldemo {
namespace {

constexpr auto kTick = std::chrono::milliseconds(10);
constexpr UINT kPromptTick = 20;             // milliseconds
constexpr double kCancelSeconds = 1.0;       ///< the time until a printer stops
constexpr double kScreenshotPatience = 5.0;  ///< seconds
constexpr double kUserPatience = 15.0;       ///< seconds, for steps that are due but not yet done
constexpr double kAnswerPatience = 1.0;      ///< seconds a prompt stays open if nobody will answer
constexpr uint32_t kPagesNotKnown = static_cast<uint32_t>(-1);

InkInfo inkInfoFor(const InkLevels& levels) {
    InkInfo info = {};
    std::copy(levels.begin(), levels.end(), std::begin(info.InkPercent));
    return info;
}

/** The number of pages that the driver passes. */
uint32_t pagesToTell(const DemoOptions& options) {
    return options.pagesKnown ? options.pages : kPagesNotKnown;
}

std::string pagesText(const DemoOptions& options) {
    return options.pagesKnown ? std::to_string(options.pages) : "?";
}

/** Whole seconds until the last page of the last copy is done. */
uint32_t secondsLeft(const DemoOptions& options, uint32_t page, uint32_t copy) {
    const double done = static_cast<double>(copy - 1) * options.pages + (page - 1);
    const double left = static_cast<double>(options.pages) * options.copies - done;
    return static_cast<uint32_t>(std::ceil(std::max(left, 0.0) * options.secondsPerPage));
}

}  // namespace

JobRun* JobRun::current_ = nullptr;

JobRun::JobRun(const JswLibrary& library, const DemoOptions& options, std::vector<Step> plan)
    : library_(library), options_(options) {
    std::partition_copy(plan.begin(), plan.end(), std::back_inserter(driverSteps_),
                        std::back_inserter(userSteps_), isDriverStep);
}

bool JobRun::run() {
    current_ = this;
    cancelled_ = false;
    console().startClock();
    good_ = start();
    std::thread user(&JobRun::runUserSteps, this);
    while (!ended_) {
        runDueDriverSteps();
        std::this_thread::sleep_for(kTick);
    }
    over_ = true;
    user.join();
    current_ = nullptr;
    return good_;
}

bool JobRun::start() {
    const InkInfo inkInfo = inkInfoFor(options_.ink);
    console().line("driver", "JSWInit: " + options_.job + " on " + options_.printer + ", " +
                                 pagesText(options_) + " page(s), " +
                                 std::to_string(options_.copies) + " copy(s)");
    const uint8_t started = library_.init(options_.printer.c_str(), options_.job.c_str(), 0, 1,
                                          pagesToTell(options_), 1, options_.copies, &inkInfo, 0,
                                          secondsLeft(options_, 1, 1), &JobRun::onStatus);
    if (started != 0) {
        console().line("driver", "JSWInit answered 1, the job has started");
        return true;
    }
    console().line("driver", "JSWInit answered 0, the job runs unwatched; the log " +
                                 logFilePath() + " and jswctl check say why");
    return false;
}

void JobRun::onStatus(uint32_t status) {
    console().line("status", statusText(status));
    if (status == JSW_STATUS_JOB_CANCELLED) cancelled_ = true;
}

double JobRun::timeOf(const Step& step) const {
    return step.implied ? step.at + delay_ : step.at;
}

bool JobRun::isDue(const Step& step) const {
    const bool waitsForAnswer =
        step.action == Action::kPage || step.action == Action::kPrompt || step.implied;
    return timeOf(step) <= console().elapsed() && !(inPrompt_ && waitsForAnswer);
}

void JobRun::runDueDriverSteps() {
    dropStepsAfterCancel();
    while (!ended_ && nextDriverStep_ < driverSteps_.size() &&
           isDue(driverSteps_[nextDriverStep_])) {
        const Step step = driverSteps_[nextDriverStep_++];
        doDriverStep(step);
        dropStepsAfterCancel();
    }
}

void JobRun::doDriverStep(const Step& step) {
    switch (step.action) {
        case Action::kPage:
            doPage(step);
            break;
        case Action::kPrompt:
            doPrompt(step.number);
            break;
        case Action::kPost:
            console().line("driver", "JSWPostDlgMsg: " + std::to_string(step.number));
            library_.postDlgMsg(reinterpret_cast<void*>(static_cast<uintptr_t>(step.number)));
            break;
        default:
            waitForUser(timeOf(step));
            doEnd();
            break;
    }
}

void JobRun::doPage(const Step& step) {
    const uint32_t left = secondsLeft(options_, step.number, step.copy);
    console().line("driver", "page " + std::to_string(step.number) + " of " + pagesText(options_) +
                                 ", copy " + std::to_string(step.copy) + " of " +
                                 std::to_string(options_.copies) + ", " + std::to_string(left) +
                                 " s left");
    library_.updateInfo(step.number, step.copy, left, 0, 0, nullptr);
}

void JobRun::doPrompt(uint32_t type) {
    console().line("driver", "JSWDisplayPrompt: type " + std::to_string(type));
    inPrompt_ = true;
    const double asked = console().elapsed();
    promptSince_ = asked;
    promptGivenUp_ = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, kPromptTick, &JobRun::onPromptTimer);
    library_.displayPrompt(type, pagesToTell(options_));
    KillTimer(nullptr, timer);
    inPrompt_ = false;
    delay_ += console().elapsed() - asked;
    console().line("driver", "JSWDisplayPrompt has returned");
}

void CALLBACK JobRun::onPromptTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (current_ == nullptr) return;
    current_->runDueDriverSteps();
    if (current_->nobodyAnswers()) {
        console().line("driver", "nobody answers the prompt: JSWPostDlgMsg closes it");
        current_->good_ = false;
        current_->promptGivenUp_ = true;
        current_->library_.postDlgMsg(reinterpret_cast<void*>(uintptr_t{JSW_LEGACY_CLOSE}));
    }
}

/** With a script, the script is the only user. */
bool JobRun::nobodyAnswers() const {
    const auto answers = [](const Step& step) { return step.action == Action::kAnswer; };
    const auto ends = [](const Step& step) { return step.action == Action::kEnd && !step.implied; };
    return !options_.scriptFile.empty() && !ended_ && !promptGivenUp_ &&
           console().elapsed() > std::max(promptSince_, lastUserStep_.load()) + kAnswerPatience &&
           std::none_of(userSteps_.begin() + static_cast<ptrdiff_t>(nextUserStep_.load()),
                        userSteps_.end(), answers) &&
           std::none_of(driverSteps_.begin() + static_cast<ptrdiff_t>(nextDriverStep_),
                        driverSteps_.end(), ends);
}

void JobRun::doEnd() {
    console().line("driver", inPrompt_ ? "JSWTerminate from inside the prompt" : "JSWTerminate");
    library_.terminate();
    ended_ = true;
    console().line("driver", "the job is over");
}

void JobRun::dropStepsAfterCancel() {
    if (!cancelled_ || cancelSeen_) return;
    cancelSeen_ = true;
    console().line("driver", "cancelling: no more pages");
    driverSteps_.resize(nextDriverStep_);
    Step end;
    end.action = Action::kEnd;
    end.at = console().elapsed() + kCancelSeconds;
    driverSteps_.push_back(end);
}

void JobRun::waitForUser(double until) const {
    const double patience = console().elapsed() + kUserPatience;
    const auto busy = [&] {
        const size_t next = nextUserStep_;
        return next < userSteps_.size() && userSteps_[next].at <= until;
    };
    while (busy() && console().elapsed() < patience) std::this_thread::sleep_for(kTick);
}

void JobRun::runUserSteps() {
    for (; nextUserStep_ < userSteps_.size(); ++nextUserStep_) {
        const Step& step = userSteps_[nextUserStep_];
        while (!over_ && console().elapsed() < step.at) std::this_thread::sleep_for(kTick);
        if (over_) {
            console().line("user", "not done, the job is over: " + describe(step));
            good_ = false;
        } else if (!doUserStep(step)) {
            good_ = false;
        }
        lastUserStep_ = console().elapsed();
    }
}

bool JobRun::doUserStep(const Step& step) {
    if (step.action == Action::kScreenshot) return takeScreenshot(step.name);
    if (step.action == Action::kLook) {
        const std::vector<std::string> lines = readJobWindow();
        console().line("user", lines.empty() ? "sees no job window" : "sees the job window:");
        for (const std::string& text : lines) console().plain("                    " + text);
        return !lines.empty();
    }
    const Press pressed =
        step.action == Action::kClick ? press(step.target, step.number) : answerDialog(step.number);
    console().line("user", describe(step) +
                               (pressed.label.empty() ? "" : " \"" + pressed.label + "\"") +
                               (pressed.problem.empty() ? "" : ": " + pressed.problem));
    return pressed.problem.empty();
}

bool JobRun::takeScreenshot(const std::string& name) {
    if (options_.screenshotFolder.empty()) {
        console().line("user", "screenshot " + name + " left out, see --screenshots");
        return true;
    }
    const std::filesystem::path file =
        std::filesystem::path(options_.screenshotFolder) / (name + ".png");
    console().line("user", "screenshot " + name);
    const double patience = console().elapsed() + kScreenshotPatience;
    std::error_code ignored;
    while (!std::filesystem::exists(file, ignored)) {
        if (console().elapsed() > patience) {
            console().line("user", "nobody took screenshot " + name);
            return false;
        }
        std::this_thread::sleep_for(kTick);
    }
    return true;
}

}  // namespace jsw::qldemo
