#pragma once

#include "samples/demo/DemoScript.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jsw::demo {

/**
 * What a user does in front of the windows of this process, from a thread other than theirs.
 * Presses are posted, not sent: whoever owns the window may be busy, and a user does not wait.
 * The two that press answer with what was in the way, or nothing.
 */
[[nodiscard]] std::string press(Target target, uint32_t pageButton);

/** Presses the button with this id in the dialog that is up. */
[[nodiscard]] std::string answerDialog(uint32_t buttonId);

/** The texts that the job window shows, one per line; empty when there is no window. */
[[nodiscard]] std::vector<std::string> readJobWindow();

}  // namespace jsw::demo
