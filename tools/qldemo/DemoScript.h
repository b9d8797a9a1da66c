#pragma once

#include "tools/qldemo/DemoOptions.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::qldemo {

/** The action of a step. The driver performs the first four, the user the others. */
enum class Action { kPage, kPrompt, kPost, kEnd, kClick, kAnswer, kLook, kScreenshot };

/** What a user can press in the job window. */
enum class Target {
    kNone,
    kPrevious,
    kCurrent,
    kNext,
    kInk,
    kCancel,
    kUpdates,
    kSpecial,
    kMinimise,
    kRestore,
    kClose,
    kCloseJob,
    kYes,  ///< the answers to the window's questions
    kNo,
    kActivate,    ///< the window itself, which comes to the front
    kPageButton,  ///< a button of the billboard page, by its number
};

/** One step of a script or of the plan made from it. */
struct Step {
    double at = 0;  ///< seconds since the start of the job
    Action action = Action::kLook;
    Target target = Target::kNone;
    uint32_t number = 0;   ///< page, prompt type, message, button (from 1) or answer
    uint32_t copy = 1;     ///< for kPage
    std::string name;      ///< for kScreenshot: a file name without extension
    uint32_t job = 0;      ///< the job it belongs to, counted from 1; 0 for every job
    bool implied = false;  ///< not from a script; delayed while a prompt blocks the driver
};

[[nodiscard]] bool isDriverStep(const Step& step);

/** The step in a script's words, without its time. */
[[nodiscard]] std::string describe(const Step& step);

/** Steps in file order, or the mistake in the first invalid line. */
struct ParsedScript {
    std::vector<Step> steps;
    std::string error;  ///< "line 3: ...", or empty
};

/** The steps of a script, for the help text. */
[[nodiscard]] std::string scriptHelp();

/** Reads a script; scriptHelp() describes it. */
[[nodiscard]] ParsedScript parseScript(std::string_view text);

}  // namespace jsw::qldemo
