#pragma once

#include <cstdint>
#include <string>

namespace jsw::prompt {

/**
 * Runs the dialog until it is answered or taken away. One at a time.
 *
 * @param printer in the ANSI code page
 */
void runPrompt(const std::string& printer, int32_t type, int32_t totalPages);

/** Hands a message to the dialog that is up, from any thread; without one it is lost. */
void postToPrompt(uintptr_t message);

}  // namespace jsw::prompt
