/**
 * @file AccessKeys.h
 * Unique access keys for buttons; those of the window have priority. Needs no Windows.
 */
#pragma once

#include "window/view/Strings.h"

#include <string>
#include <vector>

namespace jsw::view {

/**
 * Gives the page's buttons unique access keys: the letter that the label marks or, if that is
 * taken, the first free one in the label, or none.
 * @return for the page's author: a sentence for each key that was taken, or empty
 */
std::vector<std::string> giveAccessKeys(Page& page, const Strings& strings);

}  // namespace jsw::view
