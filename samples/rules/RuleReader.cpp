#include "samples/rules/RuleReader.h"

#include "common/Letters.h"

#include <charconv>
#include <string>

namespace jsw::sample {
namespace {

int64_t readNumber(const std::string& text, const std::string& what) {
    int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) {
        throw RuleError("'" + text + "' is not a number for " + what);
    }
    return number;
}

Between readBetween(const XmlNode& element) {
    const std::string above = element.attribute("above");
    const std::string below = element.attribute("below");
    if (above.empty() && below.empty()) {
        throw RuleError("<" + element.name + "> needs above or below");
    }
    Between range;
    if (!above.empty()) range.above = readNumber(above, "above");
    if (!below.empty()) range.below = readNumber(below, "below");
    return range;
}

Condition readInk(const XmlNode& element) {
    const std::string slot = element.attribute("slot", "lowest");
    const int64_t number =
        common::equalsIgnoringCase(slot, "lowest") ? kLowestInk : readNumber(slot, "slot");
    if (number < kLowestInk || number > JSW_INK_SLOTS) {
        throw RuleError("there is no ink slot " + slot);
    }
    return InkCondition{static_cast<int>(number), readBetween(element)};
}

Condition readShown(const XmlNode& element) {
    using Subject = NumberCondition::Subject;
    const std::string carts = element.attribute("carts");
    const std::string kind = element.attribute("kind", carts.empty() ? "special" : "ink");
    if (common::equalsIgnoringCase(kind, "special") && carts.empty()) {
        return NumberCondition{Subject::kSpecialShown, {}, readBetween(element)};
    }
    if (!common::equalsIgnoringCase(kind, "ink")) {
        throw RuleError("no billboards of kind '" + kind + "' are counted");
    }
    return NumberCondition{carts.empty() ? Subject::kInkShown : Subject::kCartsShown, carts,
                           readBetween(element)};
}

Condition readText(const XmlNode& element, TextCondition::Subject subject) {
    const std::string whole = element.attribute("equals");
    const std::string part = element.attribute("contains");
    if (whole.empty() == part.empty()) {
        throw RuleError("<" + element.name + "> needs either equals or contains");
    }
    return TextCondition{subject, !whole.empty(), whole.empty() ? part : whole};
}

Condition readCondition(const XmlNode& element) {
    using Number = NumberCondition::Subject;
    if (element.name == "ink") return readInk(element);
    if (element.name == "pages") return NumberCondition{Number::kPages, {}, readBetween(element)};
    if (element.name == "copies") return NumberCondition{Number::kCopies, {}, readBetween(element)};
    if (element.name == "shown") return readShown(element);
    if (element.name == "printer") return readText(element, TextCondition::Subject::kPrinter);
    if (element.name == "job") return readText(element, TextCondition::Subject::kJob);
    throw RuleError("unknown condition <" + element.name + ">");
}

Rule readRule(const XmlNode& element) {
    Rule rule{element.attribute("result"), element.flag("history"), {}};
    if (rule.result.empty()) throw RuleError("no result");
    for (const XmlNode& child : element.children) rule.conditions.push_back(readCondition(child));
    return rule;
}

}  // namespace

std::vector<Rule> readRules(const XmlNode& root) {
    std::vector<Rule> rules;
    for (const XmlNode& element : root.children) {
        if (element.name != "rule") continue;
        try {
            rules.push_back(readRule(element));
        } catch (const RuleError& error) {
            throw RuleError("rule " + std::to_string(rules.size() + 1) + ": " + error.what());
        }
    }
    return rules;
}

}  // namespace jsw::sample
