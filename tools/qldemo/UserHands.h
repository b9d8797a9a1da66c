#pragma once

#include "tools/qldemo/DemoScript.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::qldemo {

/** How a press went. */
struct Press {
    std::string label;    ///< the text on what was pressed; empty for what has none
    std::string problem;  ///< what was in the way; empty when nothing was
};

/**
 * What a user does in front of the windows of this process, from a thread other than theirs.
 * Presses are posted, not sent: whoever owns the window may be busy, and a user does not wait.
 */
[[nodiscard]] Press press(Target target, uint32_t pageButton);

/** Presses the button with this id in the dialog that is up. */
[[nodiscard]] Press answerDialog(uint32_t buttonId);

/** The texts that the job window shows, one per line; empty when there is no window. */
[[nodiscard]] std::vector<std::string> readJobWindow();

}  // namespace jsw::qldemo
