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

/// Gives the fuzzer's entry every seed of a folder, each also cut at every length, where a byte
/// read too many faults. Answers how many seeds there were.
inline int replaySeeds(const std::string& folder) {
    int seeds = 0;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        const std::string content = readFile(file.path().string());
        for (std::size_t length = 0; length <= content.size(); ++length) {
            const GuardedBuffer input(std::span(content.data(), length));
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), length);
        }
        ++seeds;
    }
    return seeds;
}

}  // namespace jsw::test
