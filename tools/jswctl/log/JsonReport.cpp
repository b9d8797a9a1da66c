#include "tools/jswctl/log/JsonReport.h"

#include "tools/jswctl/log/Words.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace jsw::ctl::log {

namespace {

using nlohmann::json;

std::string dumped(const json& value) {
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

json orNull(const std::optional<Milliseconds>& time) {
    return time ? json(timeInWords(*time)) : json();
}

json problemAsJson(const Problem& problem, const JsonReport::ToUtf8& toUtf8) {
    return {{"severity", std::string(impactInWords(problem.known->impact))},
            {"line", problem.first.line},
            {"time", orNull(problem.first.time)},
            {"text", toUtf8(problem.line)},
            {"count", problem.count},
            {"symptom", std::string(problem.known->symptom)},
            {"cause", std::string(problem.known->cause)},
            {"remedy", std::string(problem.known->remedy)}};
}

json storyAsJson(const LoggedJob& job, const JsonReport::ToUtf8& toUtf8) {
    json story = json::array();
    for (const Event& event : job.story) {
        story.push_back({{"line", event.place.line},
                         {"time", orNull(event.place.time)},
                         {"what", toUtf8(event.sentence)}});
    }
    return story;
}

json jobAsJson(const LoggedJob& job, const JsonReport::ToUtf8& toUtf8) {
    json trouble = json::array();
    for (const Problem& problem : job.problems) trouble.push_back(problemAsJson(problem, toUtf8));
    json history = json::array();
    for (const std::string& id : job.history) history.push_back(toUtf8(id));
    const auto duration = job.duration();
    return {{"job", job.begun ? json(job.number) : json()},
            {"process", job.processId ? json(*job.processId) : json()},
            {"firstLine", job.first.line},
            {"lastLine", job.last.line},
            {"start", orNull(job.first.time)},
            {"milliseconds", duration ? json(*duration) : json()},
            {"complete", job.tornDown},
            {"printer", toUtf8(job.printer)},
            {"name", toUtf8(job.name)},
            {"pages", job.pages},
            {"copies", job.copies},
            {"progressReports", job.progressReports},
            {"billboard", toUtf8(job.choice)},
            {"shownBefore", history},
            {"story", storyAsJson(job, toUtf8)},
            {"trouble", trouble}};
}

json fileAsJson(const Totals& totals, const Statistics& statistics) {
    return {{"bytes", totals.bytes},         {"lines", totals.lines},
            {"jobs", totals.jobs},           {"processes", totals.processes},
            {"foreign", totals.foreign},     {"torn", totals.torn},
            {"tooLong", totals.cut},         {"outsideJobs", statistics.linesOutside()},
            {"first", orNull(totals.first)}, {"last", orNull(totals.last)}};
}

json moduleCallsAsJson(const Statistics& statistics) {
    json calls = json::array();
    for (const CallTotals& call : statistics.moduleCalls()) {
        calls.push_back({{"call", call.name},
                         {"module", std::string(moduleOf(call.name))},
                         {"count", call.count},
                         {"milliseconds", call.total},
                         {"longest", call.longest},
                         {"longestLine", call.longestLine}});
    }
    return calls;
}

json slowestAsJson(const Statistics& statistics) {
    json calls = json::array();
    for (const SlowCall& slow : statistics.slowest()) {
        calls.push_back({{"call", slow.call.name},
                         {"milliseconds", slow.call.own},
                         {"line", slow.call.start.line},
                         {"job", slow.job},
                         {"returned", slow.call.returned}});
    }
    return calls;
}

}  // namespace

JsonReport::JsonReport(ToUtf8 toUtf8) : toUtf8_(std::move(toUtf8)) {
}

std::string JsonReport::beforeJob() {
    return std::exchange(begun_, true) ? ",\n" : "{\"jobs\": [\n";
}

std::string JsonReport::job(const LoggedJob& job) {
    return beforeJob() + dumped(jobAsJson(job, toUtf8_));
}

std::string JsonReport::end(const Totals& totals, const Statistics& statistics) {
    json trouble = json::array();
    for (const TroubleTotals& one : statistics.troubles()) {
        trouble.push_back(problemAsJson(one.problem, toUtf8_));
    }
    return (begun_ ? "" : beforeJob()) + "],\n\"log\": " + dumped(fileAsJson(totals, statistics)) +
           ",\n\"moduleCalls\": " + dumped(moduleCallsAsJson(statistics)) +
           ",\n\"slowest\": " + dumped(slowestAsJson(statistics)) +
           ",\n\"trouble\": " + dumped(trouble) + "}\n";
}

}  // namespace jsw::ctl::log
