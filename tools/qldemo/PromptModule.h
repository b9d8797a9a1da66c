#pragma once

#include <string>

namespace jsw::qldemo {

/**
 * Copies the older job window, for prompts, to where the library looks for it: the printer driver's
 * own folder, under this program's name. A driver's setup does that; the demo has none.
 *
 * @param source  the built module
 * @throws std::runtime_error if it cannot be copied
 */
void installPromptModule(const std::string& source);

}  // namespace jsw::qldemo
