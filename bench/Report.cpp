#include "bench/Report.h"

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>

namespace jsw::bench {

namespace {

/// "12.3 ns", "12.3 us", "12.3 ms"
std::string timeText(double nanoseconds) {
    const char* unit = "ns";
    for (const char* larger : {"us", "ms"}) {
        if (nanoseconds < 1000) break;
        nanoseconds /= 1000;
        unit = larger;
    }
    char text[32];
    std::snprintf(text, sizeof(text), nanoseconds < 10 ? "%.2f %s" : "%.1f %s", nanoseconds, unit);
    return text;
}

std::string number(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof(text), format, value);
    return text;
}

void printTargets(const std::vector<Target>& targets) {
    for (const Target& target : targets) {
        std::printf("%s%s: %s", &target == targets.data() ? "  " : ", ", target.text.c_str(),
                    target.holds ? "holds" : "MISSED");
    }
    std::printf("\n");
    std::fflush(stdout);
}

nlohmann::json toJson(const std::vector<Target>& targets) {
    auto list = nlohmann::json::array();
    for (const Target& target : targets) {
        list.push_back({{"text", target.text}, {"holds", target.holds}});
    }
    return list;
}

nlohmann::json toJson(const std::string& name, const Timing& timing) {
    return {{"name", name}, {"lowNs", timing.low}, {"medianNs", timing.median}};
}

std::size_t missedOf(const std::vector<Target>& targets) {
    return static_cast<std::size_t>(std::count_if(
        targets.begin(), targets.end(), [](const Target& target) { return !target.holds; }));
}

}  // namespace

Row Row::withRatioAtMost(double limit) && {
    ratioLimit = limit;
    targets.push_back({number("at most %.2f of it", limit), ratio() <= limit});
    return std::move(*this);
}

Row Row::withTimeAtMost(double nanoseconds) && {
    targets.push_back({"at most " + timeText(nanoseconds), measure.low <= nanoseconds});
    return std::move(*this);
}

void Report::printHeading() const {
    std::printf("%-42s %9s %9s  %-42s %9s %9s  %5s  %s\n", "measure", "low", "median", "beside",
                "low", "median", "ratio", "target");
}

void Report::add(Row row) {
    std::printf("%-42s %9s %9s  %-42s %9s %9s  %5.2f", row.name.c_str(),
                timeText(row.measure.low).c_str(), timeText(row.measure.median).c_str(),
                row.floorName.c_str(), timeText(row.floor.low).c_str(),
                timeText(row.floor.median).c_str(), row.ratio());
    printTargets(row.targets);
    rows_.push_back(std::move(row));
}

void Report::add(Series series) {
    std::printf("%s, %s:", series.name.c_str(), series.unit.c_str());
    for (const auto& point : series.points) {
        std::printf("  %s %.0f", point.name.c_str(), point.value);
    }
    printTargets(series.targets);
    series_.push_back(std::move(series));
}

std::size_t Report::missed() const {
    std::size_t count = 0;
    for (const Row& row : rows_) count += missedOf(row.targets);
    for (const Series& series : series_) count += missedOf(series.targets);
    return count;
}

std::string Report::json() const {
    auto rows = nlohmann::json::array();
    for (const Row& row : rows_) {
        rows.push_back({{"measure", toJson(row.name, row.measure)},
                        {"floor", toJson(row.floorName, row.floor)},
                        {"ratio", row.ratio()},
                        {"ratioLimit", row.ratioLimit},
                        {"targets", toJson(row.targets)}});
    }
    auto series = nlohmann::json::array();
    for (const Series& one : series_) {
        auto points = nlohmann::json::array();
        for (const auto& point : one.points) {
            points.push_back({{"name", point.name}, {"value", point.value}});
        }
        series.push_back({{"name", one.name},
                          {"unit", one.unit},
                          {"points", points},
                          {"targets", toJson(one.targets)}});
    }
    return nlohmann::json{{"rows", rows}, {"series", series}}.dump(2);
}

}  // namespace jsw::bench
