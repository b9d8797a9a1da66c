#pragma once

#include <jsw/jsw.h>

#include <cstdint>
#include <limits>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace jsw::sample {

/** How often billboards of each kind have been shown on this machine. */
struct ShownCounts {
    uint32_t special = 0;
    uint32_t ink = 0;
    std::map<std::string, uint32_t, std::less<>> carts;  ///< ink billboards, by their cartridges
};

/** The job for which the rules are evaluated. */
struct JobFacts {
    InkInfo inkInfo = {};
    std::string printer;
    std::string jobName;
    int32_t totalPages = 0;  ///< negative: unknown
    int32_t totalCopies = 0;
    ShownCounts shown;
};

/** Numbers between two exclusive bounds. */
struct Between {
    int64_t above = std::numeric_limits<int64_t>::min();
    int64_t below = std::numeric_limits<int64_t>::max();

    [[nodiscard]] bool contains(int64_t value) const { return above < value && value < below; }
};

/** A slot's ink in per cent; with kLowestInk the lowest of the known slots. */
struct InkCondition {
    int slot = 0;  ///< 1 to JSW_INK_SLOTS, or kLowestInk
    Between percent;
};
inline constexpr int kLowestInk = 0;

/** A number of the job or of earlier jobs. */
struct NumberCondition {
    enum class Subject { kPages, kCopies, kSpecialShown, kInkShown, kCartsShown };
    Subject subject = Subject::kPages;
    std::string carts;  ///< for kCartsShown
    Between range;
};

/** A text of the job, compared ignoring letter case. */
struct TextCondition {
    enum class Subject { kPrinter, kJob };
    Subject subject = Subject::kPrinter;
    bool whole = false;  ///< the whole text, not a part of it
    std::string wanted;
};

using Condition = std::variant<InkCondition, NumberCondition, TextCondition>;

/** Applies if all its conditions hold; without conditions always. */
struct Rule {
    std::string result;  ///< a category or billboard id, never empty
    bool historyChecked = false;
    std::vector<Condition> conditions;
};

/** Unknown values (an ink level, the number of pages) fulfil no condition. */
[[nodiscard]] bool holds(const Condition& condition, const JobFacts& job);
[[nodiscard]] bool applies(const Rule& rule, const JobFacts& job);

}  // namespace jsw::sample
