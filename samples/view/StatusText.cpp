#include "samples/view/StatusText.h"

#include <algorithm>
#include <cctype>

namespace sampleview {
namespace {

/** Longer estimates (in seconds) are taken for a driver that does not know. */
constexpr std::uint32_t kLongestEstimate = 100 * 3600;

/** Number of slots that are shown even when only the other one's level is known. */
constexpr std::size_t kUsualSlots = 2;

bool isKnownLevel(std::int32_t percent) {
    return percent >= 0 && percent <= 100;
}

/** For example "3 pages". */
std::string counted(std::int64_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun;
}

/** For example "page 2 of 3"; without the total when it is not known or already passed. */
std::string position(const std::string& noun, std::int64_t current, std::int64_t total) {
    const std::string text = noun + " " + std::to_string(current);
    return total >= 1 && current <= total ? text + " of " + std::to_string(total) : text;
}

}  // namespace

std::string progressText(const Progress& progress) {
    if (!progress.showPages || progress.totalPages < 1) return "Printing";
    if (progress.page < 1) {
        return "Starting - " +
               counted(progress.totalPages, progress.totalPages == 1 ? "page" : "pages");
    }
    std::string page = position("Page", progress.page, progress.totalPages);
    if (progress.copy < 1 || progress.totalCopies < 1) return page;
    return page + " - " + position("copy", progress.copy, progress.totalCopies);
}

std::optional<int> progressPermille(const Progress& progress) {
    if (!progress.showPages || progress.totalPages < 1) return std::nullopt;
    // Both factors fit 32 bits, so the products below fit 64.
    const std::int64_t copies = std::max<std::int64_t>(progress.totalCopies, 1);
    const std::int64_t page = std::clamp<std::int64_t>(progress.page, 0, progress.totalPages);
    const std::int64_t copiesDone = std::clamp<std::int64_t>(progress.copy - 1, 0, copies - 1);
    const double begun = static_cast<double>(copiesDone * progress.totalPages + page);
    return static_cast<int>(1000.0 * begun / static_cast<double>(copies * progress.totalPages));
}

std::string timeText(const Progress& progress) {
    if (!progress.secondsRemaining || *progress.secondsRemaining > kLongestEstimate) {
        return "Time remaining not known";
    }
    const std::uint32_t seconds = *progress.secondsRemaining;
    if (seconds == 0) return "Finishing";
    if (seconds < 60) return "About " + counted(seconds, "s remaining");
    if (seconds < 3600) {
        return "About " + counted(seconds / 60, "min ") + counted(seconds % 60, "s remaining");
    }
    return "About " + counted(seconds / 3600, "h ") + counted(seconds / 60 % 60, "min remaining");
}

std::vector<InkSlot> shownInkSlots(std::span<const std::int32_t> percents) {
    std::size_t shown = percents.size();
    while (shown > 0 && !isKnownLevel(percents[shown - 1])) --shown;
    if (shown == 0) return {};
    shown = std::max(shown, std::min(kUsualSlots, percents.size()));

    std::vector<InkSlot> slots;
    for (std::size_t i = 0; i < shown; ++i) {
        InkSlot slot{i + 1, std::nullopt};
        if (isKnownLevel(percents[i])) slot.percent = percents[i];
        slots.push_back(slot);
    }
    return slots;
}

std::string inkLabel(const InkSlot& slot) {
    return "Cartridge " + std::to_string(slot.number);
}

std::string inkLevel(const InkSlot& slot) {
    return slot.percent ? std::to_string(*slot.percent) + " %" : "not known";
}

std::string inkSummary(const std::vector<InkSlot>& slots) {
    if (slots.empty()) return "Ink levels are not known";
    std::string text;
    for (const InkSlot& slot : slots) {
        text += (text.empty() ? "" : ", ") + inkLabel(slot) + ": " + inkLevel(slot);
    }
    return text;
}

bool isSimulatedPrinter(std::string_view friendlyName) {
    constexpr std::string_view kSimulated = "simulatedprinter";
    return std::equal(friendlyName.begin(), friendlyName.end(), kSimulated.begin(),
                      kSimulated.end(),
                      [](unsigned char left, char right) { return std::tolower(left) == right; });
}

}  // namespace sampleview
