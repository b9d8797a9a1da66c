#include "tools/jswctl/log/CallTracker.h"

#include <algorithm>
#include <utility>

namespace jsw::ctl::log {

namespace {

// Limits memory for foreign logs.
constexpr std::size_t kMaxThreads = 64;
constexpr std::size_t kMaxFrames = 256;
constexpr std::size_t kMaxTag = 512;
constexpr std::size_t kMaxResult = 512;

/// The purpose of a thread whose outermost method this is.
std::string_view threadOf(std::string_view tag) {
    const std::string_view method = methodName(tag);
    if (method == "Controller::ProcessRules") return kRulesThread;
    if (method.ends_with("Callback")) return kViewThread;
    return kDriverThread;
}

Milliseconds between(const Place& from, const Place& to) {
    if (!from.time || !to.time) return 0;
    return std::max<Milliseconds>(*to.time - *from.time, 0);
}

bool endsFrame(const CallTracker::Frame& frame, const LogLine& line) {
    return frame.depth == line.depth && line.text.substr(1).starts_with(frame.tag);
}

unsigned depthOf(const std::vector<CallTracker::Frame>& stack) {
    return stack.empty() ? 0 : stack.back().depth + 1;
}

/// How well a line fits a thread that runs these methods; 0: not at all.
int fitness(const std::vector<CallTracker::Frame>& stack, const LogLine& line, TextKind kind) {
    if (kind == TextKind::exit) return !stack.empty() && endsFrame(stack.back(), line) ? 1 : 0;
    if (depthOf(stack) != line.depth) return 0;
    return !stack.empty() && line.text.starts_with(stack.back().tag) ? 2 : 1;
}

/// Only the rules thread calls the rules engine.
bool isRulesOnly(const LogLine& line, TextKind kind) {
    return kind == TextKind::entry && line.text.starts_with("+RulesEngine::");
}

}  // namespace

std::size_t CallTracker::add(const LogLine& line, std::uint64_t number, std::vector<Call>& ended) {
    const TextKind kind = kindOf(line.text);
    const std::size_t thread = threadFor(line, kind);
    const Place place{number, line.time};
    threads_[thread].lastLine = number;
    if (kind == TextKind::entry) enter(thread, line, place, ended);
    if (kind == TextKind::exit) leave(thread, line, place, ended);
    return thread;
}

void CallTracker::endAll(const Place& place, std::vector<Call>& ended) {
    for (std::size_t thread = 0; thread < threads_.size(); ++thread) {
        while (!threads_[thread].stack.empty()) pop(thread, place, {}, false, ended);
    }
}

bool CallTracker::isInside(std::size_t thread, std::string_view method) const {
    const auto& stack = threads_[thread].stack;
    return std::any_of(stack.begin(), stack.end(),
                       [&](const Frame& frame) { return methodName(frame.tag) == method; });
}

std::size_t CallTracker::threadFor(const LogLine& line, TextKind kind) {
    return line.threadId ? threadWithId(*line.threadId) : guessThread(line, kind);
}

std::size_t CallTracker::threadWithId(std::uint32_t id) {
    for (std::size_t i = 0; i < infos_.size(); ++i) {
        if (infos_[i].id == id) return i;
    }
    return addThread({}, id);
}

/// A thread gets its name from its first known purpose.
std::size_t CallTracker::addThread(std::string name, std::optional<std::uint32_t> id) {
    if (threads_.size() == kMaxThreads) return kMaxThreads - 1;
    threads_.emplace_back();
    infos_.push_back({std::move(name), id});
    return threads_.size() - 1;
}

/// The thread that the line fits best; of several, the one that wrote last; if it fits none, the
/// first one.
std::size_t CallTracker::guessThread(const LogLine& line, TextKind kind) {
    if (kind == TextKind::entry && line.depth == 0) return guessForEntry(line);
    if (threads_.empty()) return addThread(std::string(kDriverThread), std::nullopt);
    std::size_t best = 0;
    std::pair<int, std::uint64_t> bestFit{0, 0};
    for (std::size_t i = 0; i < threads_.size(); ++i) {
        int fit = fitness(threads_[i].stack, line, kind);
        if (fit != 0 && isRulesOnly(line, kind) && infos_[i].name == kRulesThread) fit = 2;
        const std::pair<int, std::uint64_t> thisFit{fit, threads_[i].lastLine};
        if (fit == 0 || thisFit <= bestFit) continue;
        best = i;
        bestFit = thisFit;
    }
    return best;
}

/// An outermost method: an idle thread of its kind, or a new one.
std::size_t CallTracker::guessForEntry(const LogLine& line) {
    const std::string_view name = threadOf(line.text.substr(1));
    for (std::size_t i = 0; i < threads_.size(); ++i) {
        if (infos_[i].name == name && threads_[i].stack.empty()) return i;
    }
    return addThread(std::string(name), std::nullopt);
}

void CallTracker::enter(std::size_t thread, const LogLine& line, const Place& place,
                        std::vector<Call>& ended) {
    auto& stack = threads_[thread].stack;
    // Calls at this depth or deeper have ended without a line, for example because it was torn.
    while (!stack.empty() && stack.back().depth >= line.depth) pop(thread, place, {}, false, ended);
    const std::string_view tag = line.text.substr(1, kMaxTag);
    if (stack.empty() && infos_[thread].name.empty()) infos_[thread].name = threadOf(tag);
    if (stack.size() < kMaxFrames) stack.push_back({std::string(tag), place, line.depth, 0});
}

void CallTracker::leave(std::size_t thread, const LogLine& line, const Place& place,
                        std::vector<Call>& ended) {
    auto& stack = threads_[thread].stack;
    const auto frame = std::find_if(stack.rbegin(), stack.rend(),
                                    [&](const Frame& open) { return endsFrame(open, line); });
    if (frame == stack.rend()) return;  // its entry is not in the log
    const auto position = static_cast<std::size_t>(stack.rend() - frame);
    while (stack.size() > position) pop(thread, place, {}, false, ended);
    constexpr std::string_view kResult = " rc=";
    std::string_view result = line.text.substr(1 + stack.back().tag.size());
    result = result.starts_with(kResult) ? result.substr(kResult.size(), kMaxResult) : "";
    pop(thread, place, std::string(result), true, ended);
}

void CallTracker::pop(std::size_t thread, const Place& place, std::string result, bool returned,
                      std::vector<Call>& ended) {
    auto& stack = threads_[thread].stack;
    const Frame frame = std::move(stack.back());
    stack.pop_back();
    const Milliseconds duration = between(frame.start, place);
    if (!stack.empty()) stack.back().inner += duration;
    const Milliseconds own = std::max<Milliseconds>(duration - frame.inner, 0);
    ended.push_back({std::string(methodName(frame.tag)), std::move(result), frame.start, duration,
                     own, thread, frame.depth, returned});
}

}  // namespace jsw::ctl::log
