#include "window/view/StatusText.h"

#include "common/Letters.h"

#include <algorithm>

namespace jsw::window {
namespace {

using common::fillIn;

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

std::string number(std::int64_t value, const WindowTexts& texts) {
    return common::grouped(value, texts.thousands);
}

/** "Page 2 of 3"; without the total if it is unknown or exceeded. */
std::string position(const std::string& of, const std::string& only, std::int64_t current,
                     std::int64_t total, const WindowTexts& texts) {
    return total >= 1 && current <= total
               ? fillIn(of, {number(current, texts), number(total, texts)})
               : fillIn(only, {number(current, texts)});
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

std::string progressText(const Progress& progress, const WindowTexts& texts) {
    if (!pagesAreKnown(progress)) {
        const bool isCounting = progress.showPages && progress.page >= 1;
        return isCounting ? fillIn(texts.printingPage, {number(progress.page, texts)})
                          : texts.printing;
    }
    if (progress.totalPages == 0) return texts.noPages;
    if (progress.page < 1) {
        return fillIn(common::plural(progress.totalPages, texts.startingOne, texts.starting),
                      {number(progress.totalPages, texts)});
    }
    std::string text =
        position(texts.pageOf, texts.pageOnly, progress.page, progress.totalPages, texts);
    // Nothing for a single copy.
    if (progress.copy < 1 || progress.totalCopies < 1) return text;
    if (progress.copy == 1 && progress.totalCopies == 1) return text;
    return text + ", " +
           position(texts.copyOf, texts.copyOnly, progress.copy, progress.totalCopies, texts);
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

std::string timeText(const Progress& progress, const WindowTexts& texts) {
    if (!progress.secondsRemaining || *progress.secondsRemaining > kLongestEstimate) {
        return texts.timeUnknown;
    }
    const std::uint32_t seconds = *progress.secondsRemaining;
    // A driver without an estimate always passes 0.
    if (seconds == 0)
        return pagesLeft(progress).value_or(0) > 0 ? texts.timeUnknown : texts.finishing;
    if (seconds < 60) return fillIn(texts.secondsLeft, {std::to_string(seconds)});
    if (seconds < 3600) {
        return fillIn(texts.minutesLeft,
                      {std::to_string(seconds / 60), std::to_string(seconds % 60)});
    }
    return fillIn(texts.hoursLeft,
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
        InkSlot slot;
        slot.number = i + 1;
        slot.inReserve = i < reserve.size() && reserve[i];
        if (isKnownLevel(percents[i])) slot.percent = percents[i];
        slots.push_back(slot);
    }
    return slots;
}

std::string inkLabel(const InkSlot& slot, const WindowTexts& texts) {
    const std::string number = std::to_string(slot.number);
    const std::string name =
        !slot.known.name.empty() ? slot.known.name
        : slot.partNumber == 0
            ? fillIn(texts.cartridge, {number})
            : fillIn(texts.cartridgeOfPart, {number, std::to_string(slot.partNumber)});
    return slot.inReserve ? fillIn(texts.inReserve, {name}) : name;
}

std::string inkLevel(const InkSlot& slot, const WindowTexts& texts) {
    if (!slot.percent) return texts.levelUnknown;
    const std::string level = fillIn(texts.percent, {std::to_string(*slot.percent)});
    return slot.isLow() ? fillIn(texts.levelLow, {level}) : level;
}

std::string inkSummary(const std::vector<InkSlot>& slots, const WindowTexts& texts) {
    if (slots.empty()) return texts.inkUnknown;
    std::string text;
    for (const InkSlot& slot : slots) {
        text += (text.empty() ? "" : ", ") + inkLabel(slot, texts) + ": " + inkLevel(slot, texts);
    }
    return text;
}

bool isSimulatedPrinter(std::string_view friendlyName) {
    return common::equalsIgnoringCase(friendlyName, "SimulatedPrinter");
}

}  // namespace jsw::window
