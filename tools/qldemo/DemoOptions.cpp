#include "tools/qldemo/DemoOptions.h"

#include "samples/common/CommandLine.h"
#include "tools/qldemo/DemoScript.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <tuple>
#include <utility>

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

bool takeText(std::string& target, const std::string& text) {
    target = text;
    return !text.empty();
}

/** The command line's options and their effects on DemoOptions. */
class CommandLine {
  public:
    explicit CommandLine(DemoOptions& options) : options_(options) {
        sample::prepareCommandLine(program_);
        program_.get_formatter()->column_width(kHelpColumn);
        program_.footer(
            "Defaults are in parentheses. Exit code: 0 done, 1 something failed, 2 bad "
            "options.\n\n" +
            scriptHelp());
        addJobOptions();
        addScriptOptions();
        addModes();
    }

    CLI::App& program() { return program_; }

  private:
    /** An option with one value; take returns whether the value is valid. */
    template <class Take>
    void add(const std::string& name, const char* value, const std::string& help, Take take) {
        const auto check = [=](const std::string& text) {
            if (!take(text)) {
                throw CLI::ValidationError("'" + text + "' is not valid for " + name + ": " + help);
            }
        };
        program_.add_option_function<std::string>(name, check, help)->type_name(value);
    }

    void add(const std::string& name, const char* value, const char* help, std::string& target) {
        add(name, value, help, [&](const std::string& text) { return takeText(target, text); });
    }

    void add(const std::string& name, const char* help, uint32_t& target, uint32_t highest) {
        add(name, "N", help, [&target, highest](const std::string& text) {
            return takeWhole(target, text, 1, highest);
        });
    }

    void addJobOptions() {
        add("--printer", "NAME", "the printer's friendly name (SimulatedPrinter)",
            options_.printer);
        add("--job", "NAME", "the document's name (report.pdf)", options_.job);
        add("--pages", "N",
            "pages of the document, 1 to 9999 (3); ? prints 3 pages without announcing them",
            [this](const std::string& text) {
                options_.pagesKnown = text != "?";
                if (!options_.pagesKnown) options_.pages = DemoOptions().pages;
                return !options_.pagesKnown || takeWhole(options_.pages, text, 1, kMostPages);
            });
        add("--copies", "copies of the document, 1 to 999 (1)", options_.copies, kMostCopies);
        add("--seconds-per-page", "S", "how long a page takes, decimals allowed (1)",
            [this](const std::string& text) {
                const auto seconds = parseSeconds(text);
                options_.secondsPerPage = seconds.value_or(options_.secondsPerPage);
                return seconds.has_value();
            });
        add("--ink", "LIST", "ink in per cent, 1 to 10 values, ? if unknown (90,10)",
            [this](const std::string& text) {
                const auto levels = parseInkLevels(text);
                options_.ink = levels.value_or(options_.ink);
                return levels.has_value();
            });
        add("--jobs", "jobs one after another in this process, 1 to 10000 (1)", options_.jobs,
            kMostJobs);
    }

    void addScriptOptions() {
        program_.add_flag("--log", options_.log, "switch the library's log on permanently");
        add("--prompt", "TYPE", "ask the user something, of this type, in the middle of each job",
            [this](const std::string& text) {
                options_.prompt = parseWhole(text, 0, std::numeric_limits<int32_t>::max());
                return options_.prompt.has_value();
            });
        add("--device", "FILE", "simulate the printers in FILE with comc.dll", options_.deviceFile);
        add("--script", "FILE",
            "timed driver calls and user clicks, see below and scripts\\*.jobscript",
            options_.scriptFile);
        add("--screenshots", "FOLDER", "where the screenshots of a script are expected",
            options_.screenshotFolder);
    }

    void addModes() {
        program_.add_flag_callback(
            "--install", [this] { options_.mode = Mode::kInstall; },
            "let the library install its settings, then end");
        program_
            .add_option_function<std::pair<std::string, std::string>>(
                "--record-url",
                [this](const std::pair<std::string, std::string>& values) {
                    options_.mode = Mode::kRecordUrl;
                    std::tie(options_.urlFile, options_.url) = values;
                },
                "append URL to FILE, then end: replaces a browser")
            ->type_name("FILE URL");
    }

    static constexpr size_t kHelpColumn = 28;

    DemoOptions& options_;
    CLI::App program_{
        "qldemo plays a printer driver: it loads jsw.dll and prints a job, page by page.",
        "qldemo"};
};

}  // namespace

ParsedOptions parseOptions(const std::vector<std::string>& arguments) {
    ParsedOptions parsed;
    CommandLine commandLine(parsed.options);
    bool help = false;
    parsed.error = sample::parseCommandLine(commandLine.program(), arguments, help);
    if (help) parsed.options.mode = Mode::kHelp;
    return parsed;
}

std::string helpText() {
    DemoOptions defaults;
    return CommandLine(defaults).program().help();
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
