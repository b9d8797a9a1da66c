#pragma once

#include "window/prompt/Strings.h"

#include <cstdint>
#include <string>

namespace jsw::prompt {

/** What the user is asked to do, for a prompt type of the driver's; any type has a text. */
[[nodiscard]] std::string promptText(int32_t type, int32_t totalPages, const Strings& strings);

/** The news that a message of the driver's brings; null when it brings none. */
[[nodiscard]] const char* noteText(uintptr_t message, const Strings& strings);

}  // namespace jsw::prompt
