#include "window/view/StatusText.h"

#include <algorithm>
#include <cctype>

namespace jsw::view {
namespace {

using ui::fillIn;

/** Longer estimates (in seconds) count as unknown. */
constexpr std::uint32_t kLongestEstimate = 100 * 3600;

/** Number of slots that are shown even if only one level is known. */
constexpr std::size_t kUsualSlots = 2;

bool isKnownLevel(std::int32_t percent) {
    return percent >= 0 && percent <= 100;
}

/** A total of 0 counts as unknown once a page has been printed. */
bool pagesAreKnown(const Progress& progress) {
    const bool isPassed = progress.totalPages == 0 && progress.page >= 1;
    return progress.showPages && progress.totalPages >= 0 && !isPassed;
}

std::string number(std::int64_t value, const Strings& strings) {
    return ui::grouped(value, strings.thousands);
}

/** "Page 2 of 3"; without the total if it is unknown or exceeded. */
std::string position(const char* of, const char* only, std::int64_t current, std::int64_t total,
                     const Strings& strings) {
    return total >= 1 && current <= total
               ? fillIn(of, {number(current, strings), number(total, strings)})
               : fillIn(only, {number(current, strings)});
}

/** Pages of all copies: begun so far, and total; both below 2 to the power of 64. */
struct Amounts {
    double begun;
    double all;
};

Amounts amounts(const Progress& progress) {
    // Both factors fit 32 bits.
    const std::int64_t copies = std::max<std::int64_t>(progress.totalCopies, 1);
    const std::int64_t page = std::clamp<std::int64_t>(progress.page, 0, progress.totalPages);
    const std::int64_t copiesDone = std::clamp<std::int64_t>(progress.copy - 1, 0, copies - 1);
    return {static_cast<double>(copiesDone * progress.totalPages + page),
            static_cast<double>(copies * progress.totalPages)};
}

}  // namespace

std::string progressText(const Progress& progress, const Strings& strings) {
    if (!pagesAreKnown(progress)) {
        const bool isCounting = progress.showPages && progress.page >= 1;
        return isCounting ? fillIn(strings.printingPage, {number(progress.page, strings)})
                          : strings.printing;
    }
    if (progress.totalPages == 0) return strings.noPages;
    if (progress.page < 1) {
        return fillIn(strings.starting.form(progress.totalPages),
                      {number(progress.totalPages, strings)});
    }
    std::string text =
        position(strings.pageOf, strings.pageOnly, progress.page, progress.totalPages, strings);
    // Nothing for a single copy.
    if (progress.copy < 1 || progress.totalCopies < 1) return text;
    if (progress.copy == 1 && progress.totalCopies == 1) return text;
    return text + ", " +
           position(strings.copyOf, strings.copyOnly, progress.copy, progress.totalCopies, strings);
}

std::optional<int> progressPermille(const Progress& progress) {
    if (!pagesAreKnown(progress) || progress.totalPages == 0) return std::nullopt;
    const Amounts pages = amounts(progress);
    return static_cast<int>(1000.0 * pages.begun / pages.all);
}

std::optional<std::int64_t> pagesLeft(const Progress& progress) {
    if (!pagesAreKnown(progress)) return std::nullopt;
    const Amounts pages = amounts(progress);
    return static_cast<std::int64_t>(pages.all - pages.begun);
}

std::string timeText(const Progress& progress, const Strings& strings) {
    if (!progress.secondsRemaining || *progress.secondsRemaining > kLongestEstimate) {
        return strings.timeUnknown;
    }
    const std::uint32_t seconds = *progress.secondsRemaining;
    // A driver without an estimate always passes 0.
    if (seconds == 0)
        return pagesLeft(progress).value_or(0) > 0 ? strings.timeUnknown : strings.finishing;
    if (seconds < 60) return fillIn(strings.secondsLeft, {std::to_string(seconds)});
    if (seconds < 3600) {
        return fillIn(strings.minutesLeft,
                      {std::to_string(seconds / 60), std::to_string(seconds % 60)});
    }
    return fillIn(strings.hoursLeft,
                  {std::to_string(seconds / 3600), std::to_string(seconds / 60 % 60)});
}

std::vector<InkSlot> shownInkSlots(std::span<const std::int32_t> percents,
                                   const std::array<bool, 2>& reserve) {
    std::size_t shown = percents.size();
    while (shown > 0 && !isKnownLevel(percents[shown - 1])) --shown;
    if (shown == 0) return {};
    shown = std::max(shown, std::min(kUsualSlots, percents.size()));

    std::vector<InkSlot> slots;
    for (std::size_t i = 0; i < shown; ++i) {
        InkSlot slot{i + 1, std::nullopt, i < reserve.size() && reserve[i]};
        if (isKnownLevel(percents[i])) slot.percent = percents[i];
        slots.push_back(slot);
    }
    return slots;
}

std::string inkLabel(const InkSlot& slot, const Strings& strings) {
    return fillIn(slot.inReserve ? strings.cartridgeInReserve : strings.cartridge,
                  {std::to_string(slot.number)});
}

std::string inkLevel(const InkSlot& slot, const Strings& strings) {
    if (!slot.percent) return strings.levelUnknown;
    const std::string level = fillIn(strings.percent, {std::to_string(*slot.percent)});
    return slot.isLow() ? fillIn(strings.levelLow, {level}) : level;
}

std::string inkSummary(const std::vector<InkSlot>& slots, const Strings& strings) {
    if (slots.empty()) return strings.inkUnknown;
    std::string text;
    for (const InkSlot& slot : slots) {
        text +=
            (text.empty() ? "" : ", ") + inkLabel(slot, strings) + ": " + inkLevel(slot, strings);
    }
    return text;
}

bool isSimulatedPrinter(std::string_view friendlyName) {
    constexpr std::string_view kSimulated = "simulatedprinter";
    return std::equal(friendlyName.begin(), friendlyName.end(), kSimulated.begin(),
                      kSimulated.end(),
                      [](unsigned char left, char right) { return std::tolower(left) == right; });
}

}  // namespace jsw::view
