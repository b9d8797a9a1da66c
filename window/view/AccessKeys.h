/**
 * @file AccessKeys.h
 * Unique access keys for buttons; those of the window have priority. Needs no Windows.
 */
#pragma once

#include "window/view/WindowTexts.h"

#include <string>
#include <vector>

namespace jsw::window {

/**
 * Gives the page's buttons unique access keys: the letter that the label marks or, if that is
 * taken, the first free one in the label, or none.
 * @return for the page's author: a sentence for each key that was taken, or empty
 */
std::vector<std::string> giveAccessKeys(Page& page, const WindowTexts& texts);

/** For a translator: a sentence for each label of the window without a key of its own. */
[[nodiscard]] std::vector<std::string> clashingKeys(const WindowTexts& texts);

}  // namespace jsw::window
