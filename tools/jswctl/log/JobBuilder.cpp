#include "tools/jswctl/log/JobBuilder.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/log/JobEnd.h"
#include "tools/jswctl/log/Pattern.h"
#include "tools/jswctl/log/StoryTexts.h"

#include <algorithm>
#include <utility>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kMaxEvents = 500;
constexpr std::size_t kMaxProblems = 200;
constexpr std::size_t kMaxCalls = 4000;
constexpr std::size_t kMaxHistory = 30;
constexpr std::size_t kMaxText = 500;  // of a stored line

constexpr std::string_view kTornDown = "<<< SingletonMgr::~SingletonMgr: ";

/// The library's objects are being constructed: an earlier job is over.
bool isBuilding(const LogLine& line) {
    return line.text == ">>> SingletonMgr::SingletonMgr: " ||
           line.text == "+AppUpdatesController::performPostUpdateChangesIfRequired() ";
}

bool isTerminating(const LogLine& line) {
    return line.text == "+Controller::jswTerminate: " ||
           line.text == "<<< Controller::jswTerminate: ";
}

/// Names in such a line are the user's and may contain anything.
bool holdsUserText(std::string_view text) {
    return text.find("riendlyName=") != std::string_view::npos;
}

std::string shortened(std::string_view text) {
    return text.size() <= kMaxText ? std::string(text)
                                   : std::string(text.substr(0, kMaxText)) + "...";
}

/// The line's text without the prefix that another line of the same failure lacks.
std::string_view withoutPrefix(std::string_view text) {
    constexpr std::string_view kPrefix = "ERROR - ";
    return text.starts_with(kPrefix) ? text.substr(kPrefix.size()) : text;
}

}  // namespace

JobBuilder::JobBuilder(std::optional<std::uint32_t> processId, JobListener& listener,
                       std::uint64_t& jobNumber)
    : processId_(processId), listener_(listener), jobNumber_(jobNumber) {
    job_.processId = processId;
}

JobBuilder::Begin JobBuilder::beginOf(const LogLine& line) {
    if (line.text == "+Controller::jswInit: ") return Begin::entry;
    if (line.text.starts_with("Params:friendlyName=")) return Begin::parameters;
    return line.text == ">>> Controller::jswInit: " ? Begin::marker : Begin::none;
}

void JobBuilder::add(const LogLine& line, std::uint64_t number) {
    startAnew(line, beginOf(line));
    const Place place{number, line.time};
    if (job_.lines == 0) job_.first = place;
    if (!job_.first.time) job_.first.time = line.time;
    job_.last = {number, line.time ? line.time : job_.last.time};
    ++job_.lines;

    std::vector<Call> ended;
    const std::size_t thread = calls_.add(line, number, ended);
    takeCalls(ended);
    note(line, place, thread);
    if (line.text == kTornDown) finish();
}

/// Ends the previous job if the line belongs to another one, and records that a job begins.
void JobBuilder::startAnew(const LogLine& line, Begin begin) {
    if (job_.begun && (isBuilding(line) || (begin != Begin::none && begin <= begin_))) finish();
    if (begin == Begin::none) return;
    begin_ = begin;
    if (job_.begun) return;
    job_.begun = true;
    job_.number = ++jobNumber_;
}

void JobBuilder::finish() {
    if (job_.lines == 0) return;
    std::vector<Call> ended;
    calls_.endAll(job_.last, ended);
    if (auto missing = findMissingEnd(job_, ended)) job_.problems.push_back(*std::move(missing));
    takeCalls(ended);
    job_.threads = calls_.threads();
    job_.choice = choice_.inWords();
    listener_.onJob(job_);
    job_ = {};
    job_.processId = processId_;
    calls_ = {};
    choice_ = {};
    begin_ = Begin::none;
    shortest_ = 0;
}

void JobBuilder::note(const LogLine& line, const Place& place, std::size_t thread) {
    const std::string_view text = line.text;
    choice_.add(text, calls_.isInside(thread, "Controller::ProcessRules"));
    noteParameters(text);
    if (text == "+Controller::jswUpdateInfo: ") ++job_.progressReports;
    noteEnd(line, place);
    if (auto sentence = tell(text)) tellEvent(place, *sentence);
    const TextKind kind = kindOf(text);
    if (kind == TextKind::message && !holdsUserText(text)) find(line, place, thread);
}

void JobBuilder::noteParameters(std::string_view text) {
    Captures part;
    if (matches("Params:friendlyName={} jobname={} jobType={} currentPage={} totalPages={} "
                "currentCopy={} totalCopies={} portType={} secondsRemaining={}",
                text, part)) {
        job_.printer = shortened(part[0]);
        job_.name = shortened(part[1]);
        job_.pages = part[4];
        job_.copies = part[6];
    } else if (!job_.begun && matches("History::read: bbId={}", text, part)) {
        if (job_.history.size() < kMaxHistory) job_.history.push_back(shortened(part[0]));
    }
}

void JobBuilder::noteEnd(const LogLine& line, const Place& place) {
    if (isTerminating(line) && job_.begun && !job_.terminated) {
        job_.terminated = true;
        tellEvent(place, "the driver ends the job");
    }
    if (line.text == kTornDown ||
        (job_.terminated && line.text == "-AppUpdatesController::destroy: ")) {
        job_.tornDown = true;
    }
}

void JobBuilder::tellEvent(const Place& place, const std::string& sentence) {
    if (job_.story.size() < kMaxEvents) {
        job_.story.push_back({place, shortened(sentence)});
    } else {
        ++job_.untold;
    }
}

/// Stores the same problem once, with its most detailed line.
void JobBuilder::find(const LogLine& line, const Place& place, std::size_t thread) {
    const KnownText* const known = findKnownText(line.text);
    if (known == nullptr) return;
    const std::string subject = shortened(subjectOf(*known, line.text));
    const auto same = std::find_if(
        job_.problems.begin(), job_.problems.end(),
        [&](const Problem& one) { return one.known == known && one.subject == subject; });
    if (same == job_.problems.end()) {
        if (job_.problems.size() < kMaxProblems) {
            job_.problems.push_back({known, subject, shortened(line.text), place, thread, 1});
        }
    } else if (line.text.size() > same->line.size() &&
               line.text.find(withoutPrefix(same->line)) != std::string_view::npos) {
        same->line = shortened(line.text);
    } else {
        ++same->count;
    }
}

void JobBuilder::takeCalls(std::vector<Call>& ended) {
    for (Call& call : ended) {
        listener_.onCall(call, job_);
        if (call.duration < shortest_) {
            ++job_.callsLeftOut;
        } else {
            job_.calls.push_back(std::move(call));
        }
    }
    if (job_.calls.size() > kMaxCalls) leaveShortCallsOut();
}

/// Drops the shorter half of the calls.
void JobBuilder::leaveShortCallsOut() {
    std::vector<Milliseconds> durations;
    durations.reserve(job_.calls.size());
    for (const Call& call : job_.calls) durations.push_back(call.duration);
    const auto middle = durations.begin() + static_cast<std::ptrdiff_t>(durations.size() / 2);
    std::nth_element(durations.begin(), middle, durations.end());
    shortest_ = *middle + 1;
    job_.callsLeftOut +=
        std::erase_if(job_.calls, [&](const Call& call) { return call.duration < shortest_; });
}

}  // namespace jsw::ctl::log
