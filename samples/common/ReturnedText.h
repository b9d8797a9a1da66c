#pragma once

#include <jsw/module.h>

#include <string>
#include <vector>

namespace jsw::sample {

/** A copy that the library frees; null for an empty text and when there is no memory. */
[[nodiscard]] char* returnedText(JswAllocate allocate, const std::string& text);

/**
 * A list that the library frees, ended by a null pointer. Stops before an empty text, which would
 * end the list on the reader's side and leak the rest, and when there is no memory.
 *
 * @return null for an empty list
 */
[[nodiscard]] char** returnedList(JswAllocate allocate, const std::vector<std::string>& texts);

}  // namespace jsw::sample
