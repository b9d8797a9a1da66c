#include "tools/jswctl/log/Words.h"

#include "PublicLib/text/Text.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace jsw::ctl::log {

namespace {

std::string grouped(std::uint64_t number) {
    std::string digits = std::to_string(number);
    for (std::size_t place = digits.size(); place > 3; place -= 3) digits.insert(place - 3, ",");
    return digits;
}

/// Pages and copies are the driver's values; -1 and -2 mean unknown.
std::string amount(const std::string& number, const char* singular, const char* plural) {
    if (number.starts_with('-')) return concat("an unknown number of ", plural);
    return concat(number, " ", number == "1" ? singular : plural);
}

}  // namespace

std::string timeInWords(Milliseconds time) {
    using namespace std::chrono;
    const sys_time<milliseconds> moment{milliseconds(time)};
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    const hh_mm_ss clock(moment - day);
    char text[64];
    std::snprintf(
        text, sizeof(text), "%04d/%02u/%02u %02d:%02d:%02d.%03d", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return text;
}

std::string secondsInWords(Milliseconds duration) {
    char text[32];
    std::snprintf(text, sizeof(text), "%lld.%03d s", static_cast<long long>(duration / 1000),
                  static_cast<int>(duration % 1000));
    return text;
}

std::string countInWords(std::uint64_t count, std::string_view singular, std::string_view plural) {
    return concat(grouped(count), " ", count == 1 ? singular : plural);
}

std::string_view impactInWords(Impact impact) {
    switch (impact) {
        case Impact::stops:
            return "stops";
        case Impact::hinders:
            return "hinders";
        case Impact::note:
            break;
    }
    return "note";
}

std::string idInWords(std::uint32_t id) {
    char text[16];
    std::snprintf(text, sizeof(text), "%04x", id);
    return text;
}

std::string printable(std::string_view text) {
    std::string result(text);
    std::replace_if(
        result.begin(), result.end(),
        [](char letter) { return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F; },
        '?');
    return result;
}

std::string jobInWords(const LoggedJob& job) {
    if (!job.begun) return "Lines outside any job";
    if (job.name.empty() && job.printer.empty() && job.pages.empty())
        return "a job without details";
    return concat("\"", job.name, "\" on \"", job.printer, "\", ",
                  amount(job.pages, "page", "pages"), ", ", amount(job.copies, "copy", "copies"));
}

std::string placeInWords(const LoggedJob& job) {
    std::string words;
    if (job.first.time) words += timeInWords(*job.first.time) + ", ";
    if (const auto duration = job.duration()) words += secondsInWords(*duration) + ", ";
    if (job.processId) words += concat("process ", idInWords(*job.processId), ", ");
    if (job.first.line == job.last.line) return words + concat("line ", job.first.line);
    return words + concat("lines ", job.first.line, " to ", job.last.line);
}

bool isWorthTelling(const LoggedJob& job) {
    return job.begun || !job.story.empty() || !job.problems.empty();
}

std::vector<std::string> fileInWords(const Totals& totals, std::uint64_t linesOutsideJobs) {
    std::vector<std::string> words;
    const auto say = [&](std::uint64_t count, const char* singular, const char* plural,
                         std::string_view rest) {
        if (count != 0) words.push_back(concat(countInWords(count, singular, plural), rest));
    };
    words.push_back(concat(countInWords(totals.jobs, "job", "jobs"), " in ",
                           countInWords(totals.logLines, "line", "lines")));
    if (totals.first && totals.last) {
        words.push_back(
            concat("from ", timeInWords(*totals.first), " to ", timeInWords(*totals.last)));
    }
    if (totals.jobs == 0) {
        words.emplace_back(
            totals.hasTraces
                ? "no job begins in the log: it was switched on during a job, or truncated"
                : "no job: while the log is switched off (startLog), it contains only errors");
    }
    say(totals.processes, "process", "processes", " with ids in the lines");
    say(linesOutsideJobs, "line", "lines", " outside any job");
    say(totals.foreign, "line or part of one", "lines or parts of lines",
        " that are not lines of a log");
    say(totals.torn, "torn line", "torn lines", ", with the next line begun inside");
    say(totals.cut, "line", "lines", " too long to be read completely");
    say(totals.backwards, "line", "lines",
        " older than the one before: the clock was set back, or files were joined");
    if (totals.endsInLine) words.emplace_back("the last line is incomplete");
    if (totals.withProcessId != totals.logLines) {
        words.emplace_back(
            "not all lines have a process id: jobs of several processes cannot be told apart "
            "(set Proc_Id_In_Header)");
    }
    if (totals.withThreadId != totals.logLines) {
        words.emplace_back(
            "not all lines have a thread id: threads are distinguished by what they do (set "
            "Thread_Id_In_Header)");
    }
    if (totals.withTime == 0) {
        words.emplace_back("the lines have no times (set Clocktime_In_Header)");
    }
    return words;
}

}  // namespace jsw::ctl::log
