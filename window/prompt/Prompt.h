#pragma once

#include <cstdint>
#include <string>

namespace jsw::prompt {

/**
 * Runs the dialog until it is answered or closed. One at a time.
 *
 * @param printer in the ANSI code page
 */
void runPrompt(const std::string& printer, int32_t type, int32_t totalPages);

/** Passes a message to the open dialog, from any thread; does nothing without one. */
void postToPrompt(uintptr_t message);

}  // namespace jsw::prompt
