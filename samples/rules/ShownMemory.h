#pragma once

#include "samples/rules/RuleSet.h"

#include <string>

namespace jsw::sample {

/** The registry's counts for the cartridges in the rules. */
[[nodiscard]] ShownCounts readShownCounts(const std::vector<Rule>& rules);

/**
 * Adds what a job has shown. An ink billboard counts only with cartridges: the library also reports
 * "ink" without cartridges after a run that found only the ink status page.
 */
void rememberShown(const std::string& carts, bool inkBillboard, bool specialBillboard);

}  // namespace jsw::sample
