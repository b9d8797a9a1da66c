#pragma once

#include "tools/qldemo/DemoOptions.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::qldemo {

/** What happens in a step. The driver does the first four, the user in front of it the others. */
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
    kYes,  ///< the answers to what the window asks
    kNo,
    kActivate,    ///< the window itself, which comes to the front with that
    kPageButton,  ///< a button of the billboard page; its number goes with it
};

/** One step of a script or of the plan made from it. */
struct Step {
    double at = 0;  ///< seconds since the start of the job
    Action action = Action::kLook;
    Target target = Target::kNone;
    uint32_t number = 0;   ///< page, prompt type, message, button (from 1) or answer
    uint32_t copy = 1;     ///< for kPage
    std::string name;      ///< for kScreenshot: a file name without its ending
    uint32_t job = 0;      ///< the job it belongs to, counted from 1; 0 for every job
    bool implied = false;  ///< not from a script; comes later when a prompt holds the driver up
};

[[nodiscard]] bool isDriverStep(const Step& step);

/** The step as a script would say it, without its time. */
[[nodiscard]] std::string describe(const Step& step);

/** Steps in file order, or what is wrong with the first bad line. */
struct ParsedScript {
    std::vector<Step> steps;
    std::string error;  ///< empty when all is well; "line 3: ..."
};

/** What can stand in a script, for the help text. */
[[nodiscard]] std::string scriptHelp();

/** Reads a script; scriptHelp() says what can stand in it. */
[[nodiscard]] ParsedScript parseScript(std::string_view text);

}  // namespace jsw::qldemo
