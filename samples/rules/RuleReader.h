#pragma once

#include "samples/common/XmlNode.h"
#include "samples/rules/RuleSet.h"

#include <stdexcept>
#include <vector>

namespace jsw::sample {

/** A rules file that says something the engine does not understand; the text names the rule. */
class RuleError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/**
 * The rules below the root element in file order.
 *
 * @throws RuleError for a rule without a result, an unknown condition or a condition that is not
 *         complete: a rule that lost a condition would apply where it must not
 */
[[nodiscard]] std::vector<Rule> readRules(const XmlNode& root);

}  // namespace jsw::sample
