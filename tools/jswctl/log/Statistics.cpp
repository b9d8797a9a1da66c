#include "tools/jswctl/log/Statistics.h"

#include <algorithm>
#include <iterator>

namespace jsw::ctl::log {

namespace {

constexpr std::size_t kMaxMethods = 500;
constexpr std::size_t kMaxSlow = 10;
constexpr std::size_t kMaxTroubles = 200;  // beyond, those of one kind are merged

struct Binding {
    std::string_view prefix;
    std::string_view module;
};
constexpr Binding kBindings[] = {
    {"BillboardView::", "view"},
    {"Catalog::", "catalog"},
    {"RulesEngine::", "rules engine"},
    {"LegacyJswGui::", "older window"},
};

/// Methods of the bindings that call no entry point.
constexpr std::string_view kInside[] = {
    "BillboardView::destroy", "BillboardView::jswInit", "BillboardView::jswTerminate",
    "Catalog::destroy",       "Catalog::instance",      "Catalog::getBillboardActionParam",
};

/// The constructors count only for bindings that load their module there.
bool staysInside(std::string_view method) {
    return method.find('~') != std::string_view::npos || method == "Catalog::Catalog" ||
           method.ends_with("Callback") ||
           std::find(std::begin(kInside), std::end(kInside), method) != std::end(kInside);
}

bool isSlower(const SlowCall& one, const SlowCall& other) {
    return one.call.own > other.call.own;
}

}  // namespace

std::string_view moduleOf(std::string_view method) {
    if (staysInside(method)) return {};
    for (const Binding& binding : kBindings) {
        if (method.starts_with(binding.prefix)) return binding.module;
    }
    return {};
}

void Statistics::add(const Call& call, const LoggedJob& job) {
    if (call.own > 0 && (slowest_.size() < kMaxSlow || call.own > slowest_.back().call.own)) {
        const SlowCall slow{call, job.number};
        slowest_.insert(std::upper_bound(slowest_.begin(), slowest_.end(), slow, isSlower), slow);
        if (slowest_.size() > kMaxSlow) slowest_.pop_back();
    }
    if (moduleOf(call.name).empty()) return;
    auto known = calls_.find(call.name);
    if (known == calls_.end()) {
        if (calls_.size() == kMaxMethods) return;
        known = calls_.emplace(call.name, CallTotals{call.name}).first;
    }
    CallTotals& totals = known->second;
    ++totals.count;
    totals.total += call.own;
    if (totals.count > 1 && call.own <= totals.longest) return;
    totals.longest = call.own;
    totals.longestLine = call.start.line;
}

void Statistics::add(const LoggedJob& job) {
    if (!job.begun) linesOutside_ += job.lines;
    for (const Problem& problem : job.problems) {
        const bool isFull = troubles_.size() >= kMaxTroubles;
        const auto [known, isNew] = troubles_.try_emplace(
            {problem.known, isFull ? std::string() : problem.subject}, TroubleTotals{problem, 0});
        TroubleTotals& totals = known->second;
        if (!isNew) totals.problem.count += problem.count;
        totals.jobs += job.begun ? 1 : 0;
    }
}

std::vector<CallTotals> Statistics::moduleCalls() const {
    std::vector<CallTotals> result;
    result.reserve(calls_.size());
    for (const auto& [name, totals] : calls_) result.push_back(totals);
    std::stable_sort(result.begin(), result.end(),
                     [](const auto& one, const auto& other) { return one.total > other.total; });
    return result;
}

std::vector<TroubleTotals> Statistics::troubles() const {
    std::vector<TroubleTotals> result;
    for (const auto& [known, totals] : troubles_) result.push_back(totals);
    std::sort(result.begin(), result.end(), [](const auto& one, const auto& other) {
        const Problem& left = one.problem;
        const Problem& right = other.problem;
        if (left.known->impact != right.known->impact) {
            return left.known->impact > right.known->impact;
        }
        return left.first.line < right.first.line;
    });
    return result;
}

bool Statistics::isAnythingStopped() const {
    return std::any_of(troubles_.begin(), troubles_.end(), [](const auto& trouble) {
        return trouble.first.first->impact == Impact::stops;
    });
}

}  // namespace jsw::ctl::log
