// Measures what the library costs a driver, each operation beside its floor.

#include "bench/Measures.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace jsw::bench;

struct Topic {
    const char* name;
    void (*measure)(Report& report, Thoroughness times);
};

constexpr Topic kTopics[] = {
    {"trace", measureDisabledTrace},    {"macros", measureMacros}, {"record", measureCacheRecord},
    {"settings", measureSettings},      {"line", measureLogLine},  {"job", measureJob},
    {"processes", measureLogProcesses},
};

std::vector<std::string> topicNames() {
    std::vector<std::string> names;
    for (const Topic& topic : kTopics) names.emplace_back(topic.name);
    return names;
}

/// @param wanted  names of topics; none: all
Report measure(const std::vector<std::string>& wanted, Thoroughness times) {
    Report report;
    report.printHeading();
    for (const Topic& topic : kTopics) {
        if (wanted.empty() || std::ranges::count(wanted, topic.name) > 0) {
            topic.measure(report, times);
        }
    }
    return report;
}

void save(const Report& report, const std::string& path) {
    std::ofstream file(path);
    file << report.json() << '\n';
    if (!file.flush()) throw std::runtime_error("cannot write " + path);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Measures what the library costs a driver.");
    Thoroughness times = 1;
    std::string jsonPath;
    std::string logRun;
    app.add_option("--times", times, "multiplies the rounds of each measure")
        ->check(CLI::Range(1, 100));
    app.add_option("--json", jsonPath, "file for the results");
    std::vector<std::string> topics;
    app.add_option("topic", topics, "what to measure; default: everything")
        ->check(CLI::IsMember(topicNames()));
    app.add_option("--write-log", logRun)->group("");  // for its child processes
    CLI11_PARSE(app, argc, argv);
    try {
        if (!logRun.empty()) {
            writeLogAsChild(logRun);
            return 0;
        }
        const Report report = measure(topics, times);
        if (!jsonPath.empty()) save(report, jsonPath);
        std::printf("Targets that are missed: %zu\n", report.missed());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "error: %s\n", error.what());
        return 1;
    }
}
