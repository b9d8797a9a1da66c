#pragma once

#include "window/prompt/PromptTexts.h"

#include <cstdint>
#include <string>

namespace jsw::window {

/** The request to the user for a driver's prompt type; every type has a text. */
[[nodiscard]] std::string promptText(int32_t type, int32_t totalPages, const PromptTexts& texts);

/** The note for a driver's message; null if it has none. */
[[nodiscard]] const std::string* noteText(uintptr_t message, const PromptTexts& texts);

}  // namespace jsw::window
