#include "tools/jswctl/log/HtmlReport.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Html.h"
#include "tools/jswctl/log/HtmlStyle.h"
#include "tools/jswctl/log/Timeline.h"
#include "tools/jswctl/log/Words.h"

#include <algorithm>

namespace jsw::ctl::log {

namespace {

using html::attribute;
using html::escaped;

constexpr std::size_t kOpenStory = 40;  // longest story that is shown unfolded

std::string element(std::string_view tag, std::string_view cssClass, std::string_view content) {
    return concat("<", tag, cssClass.empty() ? "" : attribute("class", cssClass), ">",
                  escaped(content), "</", tag, ">");
}

std::string cell(std::string_view content) {
    return element("td", "", content);
}

std::string numberCell(std::string_view content) {
    return element("td", "n", content);
}

std::string impactCell(Impact impact) {
    const std::string_view word = impactInWords(impact);
    return element("td", concat("severity ", word), word);
}

std::string codeCell(std::string_view content) {
    return concat("<td><code>", escaped(content), "</code></td>");
}

/// Text between backquotes is code.
std::string proseCell(std::string_view text) {
    std::string content;
    bool code = false;
    for (std::size_t end = 0; !text.empty(); text.remove_prefix(end)) {
        end = std::min(text.find('`'), text.size());
        content += escaped(text.substr(0, end));
        if (end == text.size()) break;
        content += (code = !code) ? "<code>" : "</code>";
        ++end;
    }
    return concat("<td>", content, "</td>");
}

std::string storyAsHtml(const LoggedJob& job) {
    if (job.story.empty()) return {};
    std::string page = concat("<details", job.story.size() <= kOpenStory ? " open" : "",
                              "><summary>What it did</summary>\n<ol class=\"story\">\n");
    for (const Event& event : job.story) {
        std::string since;
        if (event.place.time && job.first.time) {
            since = secondsInWords(*event.place.time - *job.first.time);
        }
        page += concat("<li", attribute("title", concat("line ", event.place.line)), "><time>",
                       since, "</time><span>", escaped(event.sentence), "</span></li>\n");
    }
    if (job.untold != 0)
        page += concat("<li><time></time><span>and ", job.untold, " more</span></li>\n");
    return page + "</ol></details>\n";
}

std::string problemsAsHtml(const LoggedJob& job) {
    if (job.problems.empty()) return {};
    std::string page = "<table class=\"findings\">\n";
    for (const Problem& problem : job.problems) {
        page += concat("<tr>", impactCell(problem.known->impact),
                       numberCell(concat("line ", problem.first.line)), codeCell(problem.line),
                       cell(problem.count == 1 ? "" : concat(problem.count, " times")), "</tr>\n");
    }
    return page + "</table>\n";
}

std::string factsAsHtml(const LoggedJob& job) {
    std::string page;
    const auto say = [&](std::string_view label, const std::string& fact) {
        if (!fact.empty()) page += concat("<li>", label, ": ", escaped(fact), "</li>\n");
    };
    say("Billboard", job.choice);
    std::string history;
    for (const std::string& id : job.history) history += concat(history.empty() ? "" : ", ", id);
    say("Shown before", history);
    if (job.progressReports != 0) say("Progress reports", std::to_string(job.progressReports));
    return page.empty() ? page : concat("<ul class=\"facts\">\n", page, "</ul>\n");
}

std::string pictureAsHtml(const LoggedJob& job) {
    std::string picture = timelineAsSvg(job);
    if (picture.empty()) {
        return job.begun
                   ? "<p class=\"soft\">No picture: the lines contain no times or no calls.</p>\n"
                   : "";
    }
    if (job.callsLeftOut != 0) {
        picture += concat("<p class=\"soft\">", countInWords(job.callsLeftOut, "call", "calls"),
                          " too short to be seen are omitted.</p>\n");
    }
    return picture;
}

std::string jobAsHtml(const LoggedJob& job) {
    const std::string number = job.begun ? concat("Job ", job.number, ": ") : "";
    return concat("<section class=\"job\"",
                  job.begun ? attribute("id", concat("job-", job.number)) : "", ">\n",
                  element("h3", "", number + jobInWords(job)), "\n",
                  element("p", "soft", placeInWords(job)), "\n", pictureAsHtml(job),
                  problemsAsHtml(job), factsAsHtml(job), storyAsHtml(job), "</section>\n");
}

std::string troublesAsHtml(const Statistics& statistics) {
    const auto troubles = statistics.troubles();
    if (troubles.empty()) return "<p>None.</p>\n";
    std::string page =
        "<table class=\"trouble\">\n<tr><th></th><th>Symptom</th><th>Line in the log</th>"
        "<th>Cause</th><th>Remedy</th></tr>\n";
    for (const TroubleTotals& trouble : troubles) {
        const KnownText& known = *trouble.problem.known;
        const std::string where =
            concat("line ", trouble.problem.first.line,
                   trouble.problem.count == 1 ? "" : concat(", ", trouble.problem.count, " times"));
        page += concat("<tr>", impactCell(known.impact), cell(known.symptom), "<td><code>",
                       escaped(trouble.problem.line), "</code><br>", element("span", "soft", where),
                       "</td>", proseCell(known.cause), proseCell(known.remedy), "</tr>\n");
    }
    return page + "</table>\n";
}

std::string moduleCallsAsHtml(const Statistics& statistics) {
    const auto calls = statistics.moduleCalls();
    if (calls.empty()) return "<p>The log contains no calls into modules.</p>\n";
    std::string page =
        "<table class=\"calls\">\n<tr><th>Call</th><th>Module</th><th class=\"n\">Calls</th>"
        "<th class=\"n\">All, ms</th><th class=\"n\">Longest, ms</th><th class=\"n\">at line</th>"
        "</tr>\n";
    std::size_t quick = 0;
    for (const CallTotals& call : calls) {
        if (call.total == 0) {
            ++quick;
            continue;
        }
        page +=
            concat("<tr>", codeCell(call.name), cell(moduleOf(call.name)),
                   numberCell(std::to_string(call.count)), numberCell(std::to_string(call.total)),
                   numberCell(std::to_string(call.longest)),
                   numberCell(std::to_string(call.longestLine)), "</tr>\n");
    }
    page += "</table>\n";
    if (quick == 0) return page;
    return concat(page, "<p class=\"soft\">", countInWords(quick, "call", "calls"),
                  " took less than a millisecond.</p>\n");
}

std::string slowestAsHtml(const Statistics& statistics) {
    if (statistics.slowest().empty()) return "<p>No call took a millisecond.</p>\n";
    std::string page =
        "<table class=\"slowest\">\n<tr><th>Call</th><th class=\"n\">ms</th><th class=\"n\">Line"
        "</th><th class=\"n\">Job</th></tr>\n";
    for (const SlowCall& slow : statistics.slowest()) {
        const std::string name =
            slow.call.name + (slow.call.returned ? "" : " (did not return in this log)");
        page += concat("<tr>", codeCell(name), numberCell(std::to_string(slow.call.own)),
                       numberCell(std::to_string(slow.call.start.line)),
                       numberCell(slow.job == 0 ? "" : std::to_string(slow.job)), "</tr>\n");
    }
    return page + "</table>\n";
}

std::string timesAsHtml(const Statistics& statistics) {
    constexpr char kHow[] = "\n<p class=\"soft\">Without the calls inside a call.</p>\n";
    return concat(element("h2", "", "Slowest calls"), kHow, slowestAsHtml(statistics),
                  element("h2", "", "Time in modules"), kHow, moduleCallsAsHtml(statistics));
}

std::string fileAsHtml(const Totals& totals, const Statistics& statistics) {
    std::string page = "<ul class=\"facts\">\n";
    for (const std::string& sentence : fileInWords(totals, statistics.linesOutside())) {
        page += element("li", "", sentence) + "\n";
    }
    for (const ForeignLine& line : totals.examples) {
        page += concat("<li>line ", line.number, " is foreign: <code>", escaped(line.text),
                       "</code></li>\n");
    }
    return page + "</ul>\n";
}

}  // namespace

void HtmlReport::add(const LoggedJob& job) {
    if (!isWorthTelling(job)) return;
    jobs_.push_back(jobAsHtml(job));
    if (jobs_.size() <= kMaxJobs) return;
    jobs_.pop_front();
    ++leftOut_;
}

std::string HtmlReport::page(std::string_view file, const Totals& totals,
                             const Statistics& statistics) const {
    const std::string_view fileName = file.substr(file.find_last_of("\\/:") + 1);
    std::string page = concat(
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
        "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>",
        escaped(fileName), "</title>\n<style>", kHtmlStyle, "</style>\n</head>\n<body>\n",
        element("h1", "", "What the log says"), "\n", element("p", "soft mono", fileName), "\n",
        fileAsHtml(totals, statistics), element("h2", "", "Trouble"), "\n",
        troublesAsHtml(statistics), element("h2", "", "Jobs"), "\n");
    if (leftOut_ != 0) {
        page += concat("<p>Only the last ", countInWords(jobs_.size(), "is", "are"),
                       " on this page; without --html jswctl shows the others.</p>\n");
    }
    page += legendAsHtml();
    for (const std::string& job : jobs_) page += job;
    if (totals.withTime != 0) page += timesAsHtml(statistics);
    return page + "</body>\n</html>\n";
}

}  // namespace jsw::ctl::log
