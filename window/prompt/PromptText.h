#pragma once

#include "window/prompt/Strings.h"

#include <cstdint>
#include <string>

namespace jsw::prompt {

/** The request to the user for a driver's prompt type; every type has a text. */
[[nodiscard]] std::string promptText(int32_t type, int32_t totalPages, const Strings& strings);

/** The note for a driver's message; null if it has none. */
[[nodiscard]] const char* noteText(uintptr_t message, const Strings& strings);

}  // namespace jsw::prompt
