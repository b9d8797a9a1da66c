#pragma once

#include <string>

namespace jsw::qldemo {

/**
 * Puts the older job window, which asks the user things, where the library looks for it: in the
 * printer driver's own folder, under this program's name. A driver's setup does that; the demo has
 * none.
 *
 * @param source  the module as it was built
 * @throws std::runtime_error when it cannot be copied
 */
void installPromptModule(const std::string& source);

}  // namespace jsw::qldemo
