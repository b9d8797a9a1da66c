#pragma once

#include "samples/rules/RuleSet.h"

#include <string>

namespace jsw::sample {

/** The counts kept in the registry for the cartridges that the rules ask about. */
[[nodiscard]] ShownCounts readShownCounts(const std::vector<Rule>& rules);

/**
 * Adds what a job has shown. An ink billboard counts when it names its cartridges: the library also
 * reports "ink" without any after a run that only found the ink status page.
 */
void rememberShown(const std::string& carts, bool inkBillboard, bool specialBillboard);

}  // namespace jsw::sample
