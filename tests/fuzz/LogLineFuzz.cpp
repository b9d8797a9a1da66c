// sources: tools/jswctl/log/*.cpp PublicLib/text/Text.cpp
// corpus: log
//
// An input is a whole log. Every line must be counted, and the report must be consistent.
#include "tools/jswctl/log/HtmlReport.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"
#include "tools/jswctl/log/TextReport.h"

#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

namespace {

using namespace jsw::ctl::log;

void require(bool condition) {
    if (!condition) std::abort();
}

struct Listener : JobListener {
    void onCall(const Call& call, const LoggedJob& job) override {
        require(!call.name.empty() && call.duration >= call.own && call.own >= 0);
        statistics.add(call, job);
    }
    void onJob(const LoggedJob& job) override {
        require(job.lines != 0 && job.first.line <= job.last.line);
        for (const Call& call : job.calls) require(call.thread < job.threads.size());
        for (const Problem& problem : job.problems) require(problem.known != nullptr);
        lines += job.lines;
        statistics.add(job);
        page.add(job);
        require(!jobAsText(job).empty());
    }
    std::uint64_t lines = 0;
    Statistics statistics;
    HtmlReport page;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    Listener listener;
    const Totals totals = readLog(input, listener);
    require(totals.bytes == size && totals.logLines == listener.lines);
    require(totals.logLines + totals.foreign <= totals.lines + size / 26);
    require(!summaryAsText(totals, listener.statistics).empty());
    const std::string page = listener.page.page("a.log", totals, listener.statistics);
    require(page.find('\0') == std::string::npos);
    return 0;
}
