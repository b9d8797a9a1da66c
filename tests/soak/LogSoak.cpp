// Eight processes write one log; five of them are killed at random moments.

#include "PublicLib/logging/Logger.h"
#include "PublicLib/text/Text.h"
#include "tests/soak/Soak.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TestLimits.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <memory>
#include <random>
#include <sstream>
#include <vector>

namespace jsw {

namespace {

constexpr std::size_t kWriters = 8;
constexpr std::size_t kKilled = 5;
constexpr char kCounters[] = "JswSoakLogCounters";

/// How many lines each writer has written, where the processes share it.
class Counters {
  public:
    Counters()
        : mapping_(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                      sizeof(Values), kCounters)),
          values_(static_cast<Values*>(
              MapViewOfFile(mapping_.get(), FILE_MAP_ALL_ACCESS, 0, 0, sizeof(Values)))) {}
    ~Counters() { UnmapViewOfFile(values_); }
    Counters(const Counters&) = delete;
    Counters& operator=(const Counters&) = delete;

    volatile LONG& of(std::size_t writer) { return (*values_)[writer]; }

  private:
    using Values = std::array<volatile LONG, kWriters>;

    KernelHandle mapping_;
    Values* values_;
};

const test::ChildRole writer("log writer", [](const std::string& argument) {
    const std::size_t index = static_cast<std::size_t>(argument[0] - '0');
    Counters counters;
    Logger logger(argument.substr(1), Logger::kNameWidth);
    for (;;) {
        logger.log(component::kJsw, kLogError,
                   concat("writer ", index, " line ", counters.of(index), " end"));
        InterlockedIncrement(&counters.of(index));
    }
    return 0;
});

/// The number of the next line of each writer; lines that do not follow are faults.
std::array<LONG, kWriters> readLines(const std::string& path, int& faults) {
    std::array<LONG, kWriters> next{};
    std::ifstream file(path, std::ios::binary);
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line.substr(std::min(line.find("writer"), line.size())));
        std::string word, end;
        std::size_t index = kWriters;
        LONG number = -1;
        words >> word >> index >> word >> number >> end;
        const bool follows =
            index < kWriters && number == next.at(std::min(index, kWriters - 1)) && end == "end";
        if (follows) {
            ++next.at(index);
        } else {
            ++faults;
        }
    }
    return next;
}

}  // namespace

TEST(LogSoak, NoLineIsLostWhenWritersAreKilled) {
    const test::TempFolder folder;
    const std::string path = folder.file("soak.log");
    Counters counters;
    std::vector<std::unique_ptr<test::ChildProcess>> writers;
    for (std::size_t i = 0; i < kWriters; ++i) {
        writers.push_back(
            std::make_unique<test::ChildProcess>("log writer", std::to_string(i) + path));
    }
    const auto seconds = static_cast<unsigned>(test::soakAmount(30));
    test::allowSeconds(seconds + 120);
    for (std::size_t i = 0; i < kWriters; ++i) {
        while (counters.of(i) == 0) Sleep(10);
    }
    std::mt19937 random(GetTickCount());
    for (std::size_t i = 0; i < kWriters; ++i) {
        // The last ones write on for a while without the rest and are then ended the same way.
        Sleep(static_cast<DWORD>(i < kKilled ? random() % (1000 * seconds / kKilled)
                                             : 1000 * seconds / 10));
        writers[i]->kill();
    }
    int faults = 0;
    const auto found = readLines(path, faults);
    LONG lines = 0;
    for (std::size_t i = 0; i < kWriters; ++i) {
        lines += found[i];
        // A line may be written and not counted yet.
        if (found[i] != counters.of(i) && found[i] != counters.of(i) + 1) ++faults;
    }
    test::report(kWriters, " log writers, killed at random, ", lines, " lines: ", faults,
                 " lost or torn; expected: 0");
    EXPECT_EQ(faults, 0);
    EXPECT_GT(lines, 0);
}

}  // namespace jsw
