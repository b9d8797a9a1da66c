#include "tools/jswctl/log/ReadLog.h"

#include "tools/jswctl/log/LineReader.h"

#include <algorithm>
#include <map>

namespace jsw::ctl::log {

namespace {

constexpr std::uint64_t kGiveUpBytes = std::uint64_t{1024} * 1024;
constexpr std::size_t kMaxProcesses = 64;  // at the same time
constexpr std::size_t kMaxExamples = 3;
constexpr std::size_t kMaxExample = 100;

/// Distributes lines to the jobs of their processes.
class Distributor {
  public:
    Distributor(JobListener& listener, Totals& totals) : listener_(listener), totals_(totals) {}

    void add(const LogLine& line, std::uint64_t number) {
        count(line);
        builderFor(line.processId).add(line, number);
    }

    void finish() {
        for (auto& [id, builder] : builders_) builder.finish();
    }

  private:
    void count(const LogLine& line) {
        ++totals_.logLines;
        totals_.withProcessId += line.processId ? 1 : 0;
        totals_.withThreadId += line.threadId ? 1 : 0;
        totals_.hasTraces = totals_.hasTraces || kindOf(line.text) != TextKind::message;
        if (!line.time) return;
        ++totals_.withTime;
        if (latest_ && *line.time < *latest_) ++totals_.backwards;
        latest_ = line.time;
        totals_.first = std::min(totals_.first.value_or(*line.time), *line.time);
        totals_.last = std::max(totals_.last.value_or(*line.time), *line.time);
    }

    JobBuilder& builderFor(std::optional<std::uint32_t> processId) {
        const auto known = builders_.find(processId);
        if (known != builders_.end()) return known->second;
        if (builders_.size() == kMaxProcesses) dropQuietest();
        if (processId) ++totals_.processes;
        return builders_.try_emplace(processId, processId, listener_, totals_.jobs).first->second;
    }

    /// The process that has been silent for longest has probably ended.
    void dropQuietest() {
        const auto quietest = std::min_element(
            builders_.begin(), builders_.end(), [](const auto& one, const auto& other) {
                return one.second.lastLine() < other.second.lastLine();
            });
        quietest->second.finish();
        builders_.erase(quietest);
    }

    JobListener& listener_;
    Totals& totals_;
    std::map<std::optional<std::uint32_t>, JobBuilder> builders_;
    std::optional<Milliseconds> latest_;
};

void noteForeign(std::string_view text, std::uint64_t number, Totals& totals) {
    ++totals.foreign;
    if (totals.examples.size() == kMaxExamples) return;
    totals.examples.push_back({number, std::string(text.substr(0, kMaxExample))});
}

/// A line of the file may contain the beginning of one log line and all of the next.
void addLine(std::string_view text, std::uint64_t number, Distributor& processes, Totals& totals) {
    bool torn = false;
    while (!text.empty()) {
        const std::size_t next = findNextHeading(text, 1);
        const std::string_view part = text.substr(0, next);
        if (const auto line = parseLine(part)) {
            processes.add(*line, number);
        } else {
            noteForeign(part, number, totals);
        }
        if (next == std::string_view::npos) break;
        torn = true;
        text.remove_prefix(next);
    }
    totals.torn += torn ? 1 : 0;
}

}  // namespace

Totals readLog(std::istream& input, JobListener& listener) {
    Totals totals;
    Distributor processes(listener, totals);
    LineReader reader(input);
    while (reader.next()) {
        ++totals.lines;
        totals.cut += reader.isCut() ? 1 : 0;
        totals.endsInLine = !reader.isEnded();
        addLine(reader.line(), reader.number(), processes, totals);
        totals.gaveUp = !totals.isLog() && reader.bytes() >= kGiveUpBytes;
        if (totals.gaveUp) break;
    }
    totals.bytes = reader.bytes();
    processes.finish();
    return totals;
}

}  // namespace jsw::ctl::log
