#include "tools/jswctl/log/TextReport.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Words.h"

#include <cstdio>

namespace jsw::ctl::log {

namespace {

/// Seconds since the job's first line, as a column.
std::string sinceStart(const LoggedJob& job, const Place& place) {
    if (!job.first.time || !place.time) return "         ";
    char text[32];
    std::snprintf(text, sizeof(text), "%9.3f",
                  static_cast<double>(*place.time - *job.first.time) / 1000.0);
    return text;
}

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text);
    if (result.size() < width) result.append(width - result.size(), ' ');
    return result;
}

std::string times(std::uint64_t count) {
    return count == 1 ? "" : concat(", ", count, " times");
}

std::string callRow(Milliseconds total, std::uint64_t count, Milliseconds longest,
                    std::string_view name, std::string_view rest) {
    char numbers[96];
    std::snprintf(numbers, sizeof(numbers), "  %9.3f %7llu %9.3f  ",
                  static_cast<double>(total) / 1000.0, static_cast<unsigned long long>(count),
                  static_cast<double>(longest) / 1000.0);
    return concat(numbers, padded(name, 40), " ", rest, "\n");
}

std::string moduleCallsAsText(const Statistics& statistics) {
    const auto calls = statistics.moduleCalls();
    if (calls.empty()) return {};
    std::string text =
        "\nTime in modules\n      total   calls   longest  call (seconds, without calls inside)\n";
    std::size_t quick = 0;
    for (const CallTotals& call : calls) {
        if (call.total == 0) {
            ++quick;
            continue;
        }
        text += callRow(call.total, call.count, call.longest, printable(call.name),
                        concat(moduleOf(call.name), ", longest at line ", call.longestLine));
    }
    if (quick != 0) {
        text +=
            concat("  ", countInWords(quick, "call", "calls"), " took less than a millisecond\n");
    }
    return text;
}

std::string slowestAsText(const Statistics& statistics) {
    if (statistics.slowest().empty()) return {};
    std::string text = "\nSlowest calls\n";
    for (const SlowCall& slow : statistics.slowest()) {
        char own[32];
        std::snprintf(own, sizeof(own), "  %9.3f s  ", static_cast<double>(slow.call.own) / 1000.0);
        text += concat(own, padded(printable(slow.call.name), 45), " line ", slow.call.start.line,
                       slow.job == 0 ? "" : concat(", job ", slow.job),
                       slow.call.returned ? "" : ", did not return in this log", "\n");
    }
    return text;
}

std::string troublesAsText(const Statistics& statistics) {
    const auto troubles = statistics.troubles();
    if (troubles.empty()) return "\nNo trouble\n";
    std::string text = "\nTrouble\n";
    for (std::size_t row = 0; row < troubles.size(); ++row) {
        const Problem& problem = troubles[row].problem;
        text +=
            concat("  ", padded(impactInWords(problem.known->impact), 8), " line ",
                   problem.first.line, times(problem.count), ": ", printable(problem.line), "\n");
        // Lines of one kind that follow each other share their explanation.
        if (row + 1 < troubles.size() && troubles[row + 1].problem.known == problem.known) continue;
        text += concat("           seen:   ", problem.known->symptom,
                       "\n           cause:  ", problem.known->cause,
                       "\n           remedy: ", problem.known->remedy, "\n");
    }
    return text;
}

}  // namespace

std::string jobAsText(const LoggedJob& job) {
    std::string text = job.begun ? concat("Job ", job.number, ": ") : std::string();
    text += concat(printable(jobInWords(job)), "\n  ", placeInWords(job), "\n");
    if (!job.choice.empty()) text += concat("  Billboard: ", printable(job.choice), "\n");
    if (!job.history.empty()) {
        text += "  Shown before:";
        for (const std::string& id : job.history) text += concat(" \"", printable(id), "\"");
        text += "\n";
    }
    for (const Event& event : job.story) {
        text += concat(sinceStart(job, event.place), "  ", printable(event.sentence), "\n");
    }
    if (job.untold != 0) text += concat("           and ", job.untold, " more\n");
    if (job.progressReports != 0) {
        text += concat("  The driver reported progress ",
                       countInWords(job.progressReports, "time", "times"), "\n");
    }
    for (const Problem& problem : job.problems) {
        text +=
            concat("  ", padded(impactInWords(problem.known->impact), 8), " line ",
                   problem.first.line, times(problem.count), ": ", printable(problem.line), "\n");
    }
    return text + "\n";
}

std::string summaryAsText(const Totals& totals, const Statistics& statistics) {
    std::string text = "The log\n";
    for (const std::string& sentence : fileInWords(totals, statistics.linesOutside())) {
        text += concat("  ", sentence, "\n");
    }
    for (const ForeignLine& line : totals.examples) {
        text += concat("  line ", line.number, " is foreign: ", printable(line.text), "\n");
    }
    if (totals.withTime != 0) text += moduleCallsAsText(statistics) + slowestAsText(statistics);
    return text + troublesAsText(statistics);
}

std::string knownTextsAsMarkdown() {
    std::string text = "| Symptom | Line in the log | | Cause | Remedy |\n|---|---|---|---|---|\n";
    for (const KnownText& known : knownTexts()) {
        text += concat("| ", known.symptom, " | `", known.text, "` | ", impactInWords(known.impact),
                       " | ", known.cause, " | ", known.remedy, " |\n");
    }
    return text;
}

}  // namespace jsw::ctl::log
