#include "tools/qldemo/DemoOptions.h"

#include "samples/common/CommandLine.h"
#include "tools/qldemo/DemoScript.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace jsw::qldemo {
namespace {

constexpr uint32_t kMostPages = 9999;
constexpr uint32_t kMostCopies = 999;
constexpr uint32_t kMostJobs = 10000;
constexpr double kLongestSeconds = 24.0 * 60 * 60;

bool takeWhole(uint32_t& target, const std::string& text, uint32_t lowest, uint32_t highest) {
    const auto number = parseWhole(text, lowest, highest);
    target = number.value_or(target);
    return number.has_value();
}

using sample::CommandLine;

void addWhole(CommandLine& program, const char* name, const char* help, uint32_t& target,
              uint32_t highest) {
    program.add(name, "N", help, [&target, highest](const std::string& text) {
        return takeWhole(target, text, 1, highest);
    });
}

void addJobOptions(CommandLine& program, DemoOptions& options) {
    program.add("--printer", "NAME", "the printer's friendly name (SimulatedPrinter)",
                options.printer);
    program.add("--job", "NAME", "the document's name (report.pdf)", options.job);
    program.add("--pages", "N",
                "pages of the document, 1 to 9999 (3); ? prints 3 pages without announcing them",
                [&options](const std::string& text) {
                    options.pagesKnown = text != "?";
                    if (!options.pagesKnown) options.pages = DemoOptions().pages;
                    return !options.pagesKnown || takeWhole(options.pages, text, 1, kMostPages);
                });
    addWhole(program, "--copies", "copies of the document, 1 to 999 (1)", options.copies,
             kMostCopies);
    program.add("--seconds-per-page", "S", "how long a page takes, decimals allowed (1)",
                [&options](const std::string& text) {
                    const auto seconds = parseSeconds(text);
                    options.secondsPerPage = seconds.value_or(options.secondsPerPage);
                    return seconds.has_value();
                });
    program.add("--ink", "LIST", "ink in per cent, 1 to 10 values, ? if unknown (90,10)",
                [&options](const std::string& text) {
                    const auto levels = parseInkLevels(text);
                    options.ink = levels.value_or(options.ink);
                    return levels.has_value();
                });
    addWhole(program, "--jobs", "jobs one after another in this process, 1 to 10000 (1)",
             options.jobs, kMostJobs);
}

void addScriptOptions(CommandLine& program, DemoOptions& options) {
    program.add("--log", "switch the library's log on permanently",
                [&options] { options.log = true; });
    program.add("--prompt", "TYPE",
                "ask the user something, of this type, in the middle of each job",
                [&options](const std::string& text) {
                    options.prompt = parseWhole(text, 0, std::numeric_limits<int32_t>::max());
                    return options.prompt.has_value();
                });
    program.add("--device", "FILE", "simulate the printers in FILE with comc.dll",
                options.deviceFile);
    program.add("--script", "FILE",
                "timed driver calls and user clicks, see below and scripts\\*.jobscript",
                options.scriptFile);
    program.add("--screenshots", "FOLDER", "where the screenshots of a script are expected",
                options.screenshotFolder);
}

void addModes(CommandLine& program, DemoOptions& options) {
    program.add("--install", "let the library install its settings, then end",
                [&options] { options.mode = Mode::kInstall; });
    program.add("--record-url", "FILE URL", "append URL to FILE, then end: replaces a browser",
                [&options](const std::string& file, const std::string& url) {
                    options.mode = Mode::kRecordUrl;
                    options.urlFile = file;
                    options.url = url;
                });
}

/** The command line's options and their effects on DemoOptions. */
CommandLine describe(DemoOptions& options) {
    CommandLine program(
        "qldemo", "qldemo plays a printer driver: it loads jsw.dll and prints a job, page by page.",
        "Defaults are in parentheses. Exit code: 0 done, 1 something failed, 2 bad options.\n\n" +
            scriptHelp());
    addJobOptions(program, options);
    addScriptOptions(program, options);
    addModes(program, options);
    return program;
}

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    bool help = false;
    parsed.error = describe(parsed.options).parse(arguments, help);
    if (help) parsed.options.mode = Mode::kHelp;
    return parsed;
}

std::string helpText() {
    DemoOptions defaults;
    return describe(defaults).help();
}

std::optional<InkLevels> parseInkLevels(std::string_view text) {
    InkLevels levels;
    levels.fill(-1);
    size_t slot = 0;
    for (size_t start = 0; start <= text.size(); ++slot) {
        const size_t end = std::min(text.find(',', start), text.size());
        const std::string_view part = text.substr(start, end - start);
        const auto percent = parseWhole(part, 0, 100);
        if (slot >= levels.size() || (!percent && part != "?")) return std::nullopt;
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
    // Written so that "nan" fails, too.
    if (error != std::errc() || end != text.data() + text.size() ||
        !(seconds >= 0 && seconds <= kLongestSeconds)) {
        return std::nullopt;
    }
    return seconds;
}

}  // namespace jsw::qldemo
