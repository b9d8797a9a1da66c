#pragma once

#include "samples/common/XmlNode.h"
#include "samples/rules/RuleSet.h"

#include <stdexcept>
#include <vector>

namespace jsw::sample {

/** A mistake in a rules file; the text names the rule. */
class RuleError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/**
 * The rules below the root element in file order.
 *
 * @throws RuleError for a rule without result, an unknown condition or an incomplete one: a rule
 * that lost a condition would apply in the wrong jobs
 */
[[nodiscard]] std::vector<Rule> readRules(const XmlNode& root);

}  // namespace jsw::sample
