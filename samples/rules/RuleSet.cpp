#include "samples/rules/RuleSet.h"

#include "common/Letters.h"
#include "samples/common/XmlNode.h"

#include <algorithm>

namespace jsw::sample {
namespace {

/** Per cent; negative: unknown. */
int32_t inkPercent(const InkInfo& inkInfo, int slot) {
    if (slot != kLowestInk) return inkInfo.InkPercent[slot - 1];
    int32_t lowest = -1;
    for (int index = 0; index < JSW_INK_SLOTS; ++index) {
        const int32_t percent = inkInfo.InkPercent[index];
        if (percent >= 0 && (lowest < 0 || percent < lowest)) lowest = percent;
    }
    return lowest;
}

struct Evaluator {
    const JobFacts& job;

    bool operator()(const InkCondition& condition) const {
        return known(inkPercent(job.inkInfo, condition.slot), condition.percent);
    }

    bool operator()(const NumberCondition& condition) const {
        using Subject = NumberCondition::Subject;
        switch (condition.subject) {
            case Subject::kPages:
                return known(job.totalPages, condition.range);
            case Subject::kCopies:
                return known(job.totalCopies, condition.range);
            case Subject::kSpecialShown:
                return condition.range.contains(job.shown.special);
            case Subject::kInkShown:
                return condition.range.contains(job.shown.ink);
            case Subject::kCartsShown:
                break;
        }
        const auto found = job.shown.carts.find(condition.carts);
        return condition.range.contains(found == job.shown.carts.end() ? 0 : found->second);
    }

    bool operator()(const TextCondition& condition) const {
        const std::string& text =
            condition.subject == TextCondition::Subject::kPrinter ? job.printer : job.jobName;
        return condition.whole ? common::equalsIgnoringCase(text, condition.wanted)
                               : common::toLower(text).find(common::toLower(condition.wanted)) !=
                                     std::string::npos;
    }

    static bool known(int32_t value, const Between& range) {
        return value >= 0 && range.contains(value);
    }
};

}  // namespace

bool holds(const Condition& condition, const JobFacts& job) {
    return std::visit(Evaluator{job}, condition);
}

bool applies(const Rule& rule, const JobFacts& job) {
    return std::all_of(rule.conditions.begin(), rule.conditions.end(),
                       [&](const Condition& condition) { return holds(condition, job); });
}

}  // namespace jsw::sample
