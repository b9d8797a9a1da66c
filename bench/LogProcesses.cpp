// Several processes write one log.

#include "PublicLib/logging/BasicLogger.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/SystemFolders.h"
#include "bench/Host.h"
#include "bench/Measures.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace jsw::bench {

namespace {

constexpr std::uint32_t kLinesPerProcess = 300;
constexpr std::uint32_t kProcessCounts[] = {1, 2, 4, 8};

/// Starts and stops a run, by names that all its processes know.
struct RunSignals {
    KernelHandle ready;
    KernelHandle go;
    KernelHandle done;

    explicit RunSignals(const std::string& name)
        : ready(CreateSemaphoreA(nullptr, 0, 64, (name + " ready").c_str())),
          go(CreateEventA(nullptr, TRUE, FALSE, (name + " go").c_str())),
          done(CreateSemaphoreA(nullptr, 0, 64, (name + " done").c_str())) {}
};

void waitFor(const KernelHandle& semaphore, std::size_t count) {
    constexpr DWORD kPatienceMs = 60'000;
    for (std::size_t i = 0; i < count; ++i) {
        if (WaitForSingleObject(semaphore.get(), kPatienceMs) != WAIT_OBJECT_0) {
            throw std::runtime_error("a process that writes the log has not answered");
        }
    }
}

KernelHandle startChild(const std::string& run) {
    std::string command = concat("\"", moduleFileName(nullptr), "\" --write-log \"", run, "\"");
    STARTUPINFOA startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION info{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &info) == FALSE) {
        throw std::runtime_error("cannot start a process that writes the log");
    }
    const KernelHandle thread(info.hThread);
    return KernelHandle(info.hProcess);
}

std::size_t linesInLog() {
    std::ifstream file(concat(std::getenv("ALLUSERSPROFILE"), "\\",
                              Localize::getInstance()->localId(), "JSW.log"));
    std::size_t count = 0;
    for (std::string line; std::getline(file, line);) ++count;
    return count;
}

/// Lines per second that this number of processes write in total.
double linesPerSecond(std::uint32_t processes) {
    static int runs = 0;
    const std::string run = concat("JSW bench ", GetCurrentProcessId(), " ", ++runs);
    const RunSignals signals(run);
    BasicLogger::existing()->deleteLog();
    std::vector<KernelHandle> children;
    for (std::uint32_t i = 0; i < processes; ++i) children.push_back(startChild(run));
    waitFor(signals.ready, processes);
    const double nanoseconds = timeOnce([&] {
        SetEvent(signals.go.get());
        waitFor(signals.done, processes);
    });
    for (const KernelHandle& child : children) WaitForSingleObject(child.get(), INFINITE);
    const std::size_t expected = std::size_t{processes} * kLinesPerProcess;
    if (linesInLog() != expected) {
        throw std::runtime_error(concat(processes, " processes: the log has ", linesInLog(),
                                        " lines instead of ", expected));
    }
    return static_cast<double>(expected) * 1e9 / nanoseconds;
}

}  // namespace

void writeLogAsChild(const std::string& run) {
    Localize::createInstance(nullptr);
    provideSettings();
    BasicLogger::createInstance(15);
    const RunSignals signals(run);
    const std::string text(40, 'x');
    static_cast<void>(isLogEnabled(component::kJsw, kLogTrace));  // reads the switches
    ReleaseSemaphore(signals.ready.get(), 1, nullptr);
    WaitForSingleObject(signals.go.get(), INFINITE);
    for (std::uint32_t i = 0; i < kLinesPerProcess; ++i) {
        logLine(component::kJsw, kLogTrace, text);
    }
    ReleaseSemaphore(signals.done.get(), 1, nullptr);
}

void measureLogProcesses(Report& report, Thoroughness times) {
    const Host host(1);
    Series series{"processes writing one log", "lines per second in all, none lost"};
    for (const std::uint32_t processes : kProcessCounts) {
        double best = 0;
        for (std::uint32_t round = 0; round < 3 * times; ++round) {
            best = std::max(best, linesPerSecond(processes));
        }
        series.points.push_back({std::to_string(processes), best});
    }
    const double one = series.points.front().value;
    const double eight = series.points.back().value;
    series.targets.push_back({"8 at least half of 1", eight >= one / 2});
    report.add(std::move(series));
}

}  // namespace jsw::bench
