#include "samples/demo/DemoOptions.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

namespace jsw::demo {

namespace {

constexpr uint32_t kMostPages = 9999;
constexpr uint32_t kMostCopies = 999;
constexpr uint32_t kMostJobs = 10000;
constexpr double kLongestSeconds = 24.0 * 60 * 60;

/** One option: takes its values and answers whether they are good. */
struct Option {
    const char* name;
    const char* values;  ///< their names, separated by blanks; empty for a switch
    const char* help;
    bool (*take)(DemoOptions& options, const std::string* values);
};

bool takeWhole(uint32_t& target, const std::string& text, uint32_t lowest, uint32_t highest) {
    const auto number = parseWhole(text, lowest, highest);
    target = number.value_or(target);
    return number.has_value();
}

bool takeText(std::string& target, const std::string& text) {
    target = text;
    return !text.empty();
}

const Option kOptions[] = {
    {"--printer", "NAME", "the printer's friendly name (SimulatedPrinter)",
     [](DemoOptions& options, const std::string* value) {
         return takeText(options.printer, *value);
     }},
    {"--job", "NAME", "the document's name (report.pdf)",
     [](DemoOptions& options, const std::string* value) { return takeText(options.job, *value); }},
    {"--pages", "N", "pages of the document, 1 to 9999 (3)",
     [](DemoOptions& options, const std::string* value) {
         return takeWhole(options.pages, *value, 1, kMostPages);
     }},
    {"--copies", "N", "copies of the document, 1 to 999 (1)",
     [](DemoOptions& options, const std::string* value) {
         return takeWhole(options.copies, *value, 1, kMostCopies);
     }},
    {"--seconds-per-page", "S", "how long a page takes, decimals allowed (1)",
     [](DemoOptions& options, const std::string* value) {
         const auto seconds = parseSeconds(*value);
         options.secondsPerPage = seconds.value_or(options.secondsPerPage);
         return seconds.has_value();
     }},
    {"--ink", "LIST", "ink in per cent, 1 to 10 values, ? when not known (90,10)",
     [](DemoOptions& options, const std::string* value) {
         const auto levels = parseInkLevels(*value);
         options.ink = levels.value_or(options.ink);
         return levels.has_value();
     }},
    {"--jobs", "N", "jobs one after another in this process, 1 to 10000 (1)",
     [](DemoOptions& options, const std::string* value) {
         return takeWhole(options.jobs, *value, 1, kMostJobs);
     }},
    {"--log", "", "switch the library's log on, for good",
     [](DemoOptions& options, const std::string*) { return options.log = true; }},
    {"--prompt", "TYPE", "ask the user something, of this type, in the middle of each job",
     [](DemoOptions& options, const std::string* value) {
         options.prompt = parseWhole(*value, 0, std::numeric_limits<int32_t>::max());
         return options.prompt.has_value();
     }},
    {"--device", "FILE", "reach the printers that FILE describes through comc.dll",
     [](DemoOptions& options, const std::string* value) {
         return takeText(options.deviceFile, *value);
     }},
    {"--script", "FILE", "timed driver calls and user clicks; see scripts\\*.jobscript",
     [](DemoOptions& options, const std::string* value) {
         return takeText(options.scriptFile, *value);
     }},
    {"--screenshots", "FOLDER", "where somebody puts the screenshots that a script asks for",
     [](DemoOptions& options, const std::string* value) {
         return takeText(options.screenshotFolder, *value);
     }},
    {"--install", "", "let the library install its settings, then end",
     [](DemoOptions& options, const std::string*) {
         options.mode = Mode::kInstall;
         return true;
     }},
    {"--record-url", "FILE URL", "add URL to FILE, then end: a stand-in for a browser",
     [](DemoOptions& options, const std::string* values) {
         options.mode = Mode::kRecordUrl;
         options.url = values[1];
         return takeText(options.urlFile, values[0]);
     }},
    {"--help", "", "show this text",
     [](DemoOptions& options, const std::string*) {
         options.mode = Mode::kHelp;
         return true;
     }},
};

size_t valueCount(const Option& option) {
    const std::string_view values = option.values;
    return values.empty() ? 0
                          : static_cast<size_t>(std::count(values.begin(), values.end(), ' ')) + 1;
}

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    for (size_t index = 0; index < arguments.size();) {
        const std::string& name = arguments[index++];
        const auto* option = std::find_if(std::begin(kOptions), std::end(kOptions),
                                          [&](const Option& known) { return name == known.name; });
        if (option == std::end(kOptions)) {
            parsed.error = "unknown option " + name;
            return parsed;
        }
        const size_t count = valueCount(*option);
        if (arguments.size() - index < count) {
            parsed.error = name + " needs " + option->values;
            return parsed;
        }
        if (!option->take(parsed.options, arguments.data() + index)) {
            parsed.error = "'" + arguments[index] + "' will not do for " + name + ": " +
                           std::string(option->help);
            return parsed;
        }
        index += count;
        if (parsed.options.mode == Mode::kHelp) {
            return parsed;  // whoever asks for help gets it, whatever else is wrong
        }
    }
    return parsed;
}

std::string helpText() {
    constexpr size_t kHelpColumn = 28;
    std::string text =
        "qldemo plays a printer driver: it loads jsw.dll and prints a job, page by page.\n\n"
        "Usage: qldemo [option...]\n\n";
    for (const Option& option : kOptions) {
        std::string line = std::string("  ") + option.name + " " + option.values;
        line.resize(std::max(line.size() + 1, kHelpColumn), ' ');
        text += line + option.help + "\n";
    }
    return text +
           "\nDefaults stand in parentheses. Exit code: 0 done, 1 something failed, 2 bad "
           "options.\n";
}

std::optional<InkLevels> parseInkLevels(std::string_view text) {
    InkLevels levels;
    levels.fill(-1);
    size_t slot = 0;
    for (size_t start = 0; start <= text.size(); ++slot) {
        const size_t end = std::min(text.find(',', start), text.size());
        const std::string_view part = text.substr(start, end - start);
        const auto percent = parseWhole(part, 0, 100);
        if (slot >= levels.size() || (!percent && part != "?")) {
            return std::nullopt;
        }
        levels[slot] = percent ? static_cast<int32_t>(*percent) : -1;
        start = end + 1;
    }
    return levels;
}

std::optional<uint32_t> parseWhole(std::string_view text, uint32_t lowest, uint32_t highest) {
    uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < lowest ||
        number > highest) {
        return std::nullopt;
    }
    return number;
}

std::optional<double> parseSeconds(std::string_view text) {
    double seconds = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed);
    // Written so that what is not a number at all ("nan") fails too.
    if (error != std::errc() || end != text.data() + text.size() ||
        !(seconds >= 0 && seconds <= kLongestSeconds)) {
        return std::nullopt;
    }
    return seconds;
}

}  // namespace jsw::demo
