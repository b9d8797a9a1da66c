#pragma once

#include "tests/support/GuardedBuffer.h"
#include "tests/support/TempFolder.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

/// The fuzzer's entry that the test program is linked with.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace jsw::test {

/// Gives the fuzzer's entry an input from a buffer in which a byte read too many faults.
inline void runGuarded(std::span<const char> bytes) {
    const GuardedBuffer input(bytes);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

/// The same with every seed of a folder, each also cut at every length, or at about so many.
/// Answers how many seeds there were.
inline int replaySeeds(const std::string& folder, std::size_t cuts = SIZE_MAX) {
    int seeds = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const std::string content = readFile(file.path().string());
        for (std::size_t length = 0; length <= content.size();
             length += 1 + content.size() / cuts) {
            runGuarded(std::span(content.data(), length));
        }
        ++seeds;
    }
    return seeds;
}

}  // namespace jsw::test
