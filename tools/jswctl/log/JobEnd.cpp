#include "tools/jswctl/log/JobEnd.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/Statistics.h"

namespace jsw::ctl::log {

namespace {

using enum Impact;

constexpr KnownText kInModule = {"", stops, "The log ends inside a call of a module",
                                 "The module crashed or ended the host, or has not returned yet",
                                 "Test the module with `jswctl module KIND FILE`; Windows' event "
                                 "log names the file and place of a crash"};
constexpr KnownText kNoEnd = {
    "", hinders, "The job has no end",
    "The host crashed, was ended or is still printing; or, if the lines have no process ids, "
    "another process wrote in between",
    "Check Windows' event log for the host; switch `Proc_Id_In_Header` on"};
constexpr KnownText kEndedInPrompt = {
    "", note, "A part of the job's end is missing in the log",
    "The next job completes the end of a job that was ended inside a prompt",
    "None, if there was a prompt"};

/// While the driver waits in a call, a module may be working on another thread: report that module.
const KnownText& whatIsMissing(const LoggedJob& job, bool inModule, bool anyOpen) {
    if (inModule) return kInModule;
    return job.terminated && !anyOpen ? kEndedInPrompt : kNoEnd;
}

}  // namespace

std::optional<Problem> findMissingEnd(const LoggedJob& job, const std::vector<Call>& open) {
    if (job.tornDown) return std::nullopt;
    std::string running;
    const Call* previous = nullptr;
    bool inModule = false;
    for (const Call& call : open) {
        const bool isInnermost = previous == nullptr || previous->thread != call.thread;
        previous = &call;
        if (!isInnermost) continue;
        const std::string_view module = moduleOf(call.name);
        inModule = inModule || !module.empty();
        running +=
            concat(running.empty() ? "; still running: " : ", ", call.name,
                   module.empty() ? "" : " of the ", module, " (line ", call.start.line, ")");
    }
    if (!job.begun && !inModule) return std::nullopt;
    return Problem{&whatIsMissing(job, inModule, !open.empty()),
                   {},
                   "the log has no end of the job" + running,
                   job.last,
                   0,
                   1};
}

}  // namespace jsw::ctl::log
