#pragma once

#include "tests/support/GuardedBuffer.h"
#include "tests/support/TempFolder.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

/// The fuzzer's entry in this test program.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace jsw::test {

/// Passes an input to the fuzzer's entry in a buffer where reading beyond the end faults.
inline void runGuarded(std::span<const char> bytes) {
    const GuardedBuffer input(bytes);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

/// The same with every seed of a folder, each also cut at every length, or at about this many.
/// Returns the number of seeds.
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
