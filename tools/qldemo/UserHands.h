#pragma once

#include "tools/qldemo/DemoScript.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::qldemo {

/** The outcome of a press. */
struct Press {
    std::string label;    ///< the control's label, or empty
    std::string problem;  ///< why it failed, or empty
};

/**
 * A user's actions in this process's windows, on another thread. Presses are posted, not sent: the
 * window's thread may be busy, and a user does not wait. Each press is one attempt; JobRun decides
 * how long it is repeated.
 */
[[nodiscard]] Press press(Target target, uint32_t pageButton);

/** Presses the button with this id in the open dialog. */
[[nodiscard]] Press answerDialog(uint32_t buttonId);

/** The job window's texts, one per line; empty without a window. */
[[nodiscard]] std::vector<std::string> readJobWindow();

}  // namespace jsw::qldemo
