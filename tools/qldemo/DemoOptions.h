#pragma once

#include <jsw/jsw.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jsw::qldemo {

/** Per cent of every ink slot; -1: unknown. */
using InkLevels = std::array<int32_t, JSW_INK_SLOTS>;

enum class Mode {
    kRunJobs,
    kHelp,
    kInstall,    ///< let the library install its settings, then end
    kRecordUrl,  ///< act as the handler of web addresses: record the address, then end
};

/** The command line's options; the defaults are a job on the simulated printer. */
struct DemoOptions {
    Mode mode = Mode::kRunJobs;
    std::string printer = "SimulatedPrinter";
    std::string job = "report.pdf";
    uint32_t pages = 3;
    bool pagesKnown = true;  ///< the driver knows their number when the job starts
    uint32_t copies = 1;
    uint32_t jobs = 1;
    double secondsPerPage = 1.0;
    InkLevels ink = {90, 10, -1, -1, -1, -1, -1, -1, -1, -1};
    bool log = false;
    std::optional<uint32_t> prompt;
    std::string deviceFile;        ///< empty: no device client
    std::string scriptFile;        ///< empty: no script
    std::string screenshotFolder;  ///< empty: no screenshots
    std::string urlFile;           ///< for kRecordUrl
    std::string url;               ///< for kRecordUrl
};

/** Options, or the command line's mistake. */
struct ParsedOptions {
    DemoOptions options;
    std::string error;  ///< a sentence without a full stop, or empty
};

/** @param arguments the command line without the program's name */
[[nodiscard]] ParsedOptions parseOptions(const std::vector<std::string>& arguments);

/** The text of --help. */
[[nodiscard]] std::string helpText();

/** "90,10,?": one to ten percentages, "?" for an unknown one; nothing for any other text. */
[[nodiscard]] std::optional<InkLevels> parseInkLevels(std::string_view text);

/** Decimal digits only, from lowest to highest. */
[[nodiscard]] std::optional<uint32_t> parseWhole(std::string_view text, uint32_t lowest,
                                                 uint32_t highest);

/** Seconds such as "2" or "0.25", from 0 to a day. */
[[nodiscard]] std::optional<double> parseSeconds(std::string_view text);

}  // namespace jsw::qldemo
