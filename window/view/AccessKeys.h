/**
 * @file AccessKeys.h
 * One access key for each button: the window's own come first. No Windows in it.
 */
#pragma once

#include "window/view/Strings.h"

#include <string>
#include <vector>

namespace jsw::view {

/**
 * Gives the page's buttons access keys that nothing else in the window has: the letter that a label
 * marks or, where that is taken, the first free one in the label, or none.
 * @return for the page's author: a sentence for each key that was taken, empty when all is well
 */
std::vector<std::string> giveAccessKeys(Page& page, const Strings& strings);

}  // namespace jsw::view
