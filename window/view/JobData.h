/**
 * @file JobData.h
 * The host's data about one job, and the user's actions in it. Needs no Windows.
 */
#pragma once

#include "window/view/StatusText.h"
#include "window/view/WindowPlace.h"
#include <jsw/types.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace jsw::window {

/** Everything the window shows. Texts are UTF-8 unless they say otherwise. */
struct JobData {
    std::string dataPath; /**< in the ANSI code page, as file functions need it */
    std::string jobName;
    std::string printerName;
    Progress progress;
    std::array<std::int32_t, JSW_INK_SLOTS> inkPercents = noInkLevels();
    std::array<std::uint32_t, 2> partNumbers{}; /**< of cartridge 1 and 2; 0: unknown */
    bool inkTold = false;                       /**< whether the host has passed ink data */
    std::array<bool, 2> reserveMode{};          /**< of cartridge 1 and 2 */

    std::string billboard;             /**< file name in the ANSI code page; empty: none */
    std::uint32_t billboardSerial = 0; /**< counts the requests to display one */
    bool navigation = false;

    bool visible = false;
    bool startMinimized = false;
    bool restoreWanted = false; /**< a billboard has asked to restore the window */
    bool showSpecialMessages = true;
    bool updateSoftware = false;
    bool cancelling = false;
    bool closingExplained = false; /**< the user knows that closing does not cancel */

    SavedPlace savedPlace; /**< from an earlier job */

    static constexpr std::array<std::int32_t, JSW_INK_SLOTS> noInkLevels() {
        std::array<std::int32_t, JSW_INK_SLOTS> levels{};
        for (auto& level : levels) level = -1;
        return levels;
    }
};

}  // namespace jsw::window
