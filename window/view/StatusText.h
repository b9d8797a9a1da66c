/**
 * @file StatusText.h
 * Texts about the job's progress and the ink. Needs no Windows.
 */
#pragma once

#include "window/view/Cartridges.h"
#include "window/view/WindowTexts.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::window {

/** The job's progress. Totals below 0 are unknown. */
struct Progress {
    std::int64_t page = 0; /**< page being printed, from 1; 0 before the first */
    std::int64_t totalPages = -1;
    std::int64_t copy = 0; /**< copy being printed, from 1 */
    std::int64_t totalCopies = -1;
    bool showPages = true; /**< false: this job has no page counts */
    std::optional<std::uint32_t> secondsRemaining;
};

/** For example "Page 2 of 3, copy 1 of 2"; without the copy if there is only one. */
[[nodiscard]] std::string progressText(const Progress& progress, const WindowTexts& texts);

/** Pages begun so far of all pages of all copies, 0 to 1000; nothing if unknown. */
[[nodiscard]] std::optional<int> progressPermille(const Progress& progress);

/** Pages of all copies not begun yet; nothing if unknown. */
[[nodiscard]] std::optional<std::int64_t> pagesLeft(const Progress& progress);

/** For example "About 2 min 5 s remaining"; says so if the time is unknown. */
[[nodiscard]] std::string timeText(const Progress& progress, const WindowTexts& texts);

/** Ink up to this level (per cent) is low. */
inline constexpr int kLowPercent = 20;

/** One ink slot to show. */
struct InkSlot {
    std::size_t number = 0;       /**< from 1 */
    std::optional<int> percent;   /**< 0 to 100; nothing if unknown */
    std::uint32_t partNumber = 0; /**< 0: unknown */
    CartridgeName known;          /**< what the content says */
    bool inReserve = false;       /**< prints from what is left in the tank */
    [[nodiscard]] bool isLow() const { return percent && *percent <= kLowPercent; }
    bool operator==(const InkSlot&) const = default;
};

/**
 * The slots to show: the two cartridges of every printer, and all others up to the last one with a
 * known level (0 to 100). Empty if no level is known.
 * @param reserve whether cartridges 1 and 2 are in reserve mode
 */
[[nodiscard]] std::vector<InkSlot> shownInkSlots(std::span<const std::int32_t> percents,
                                                 const std::array<bool, 2>& reserve = {});

/** Its name, or for example "Cartridge 1, no. 36", "Cartridge 1". */
[[nodiscard]] std::string inkLabel(const InkSlot& slot, const WindowTexts& texts);

/** For example "90%", "10% low" or "not known". */
[[nodiscard]] std::string inkLevel(const InkSlot& slot, const WindowTexts& texts);

/** All slots in one line, or the text for unknown ink levels. */
[[nodiscard]] std::string inkSummary(const std::vector<InkSlot>& slots, const WindowTexts& texts);

/** Whether this printer's data is simulated. */
[[nodiscard]] bool isSimulatedPrinter(std::string_view friendlyName);

}  // namespace jsw::window
