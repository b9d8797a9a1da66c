// sources: jsw/settings/macros/TagScanner.cpp
// corpus: tags
//
// The first line of an input is the text; line n after it is the value of the tag named n (one
// character from "1" on). The result must equal that of the naive replacement; a value that leads
// back to itself must stop at the limits.
#include "tests/macros/NaiveReplacement.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

std::string_view cutLine(std::string_view& input) {
    const std::size_t length = std::min(input.find('\n'), input.size());
    const std::string_view line = input.substr(0, length);
    input.remove_prefix(std::min(length + 1, input.size()));
    return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kMaxSteps = 40;
    constexpr std::size_t kMaxSize = 2048;
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view text = cutLine(input);
    jsw::test::TagValues handler;
    for (char name = '1'; !input.empty() && name <= '9'; ++name) {
        handler.values.emplace(std::string(1, name), cutLine(input));
    }

    const auto result = jsw::replaceTags(std::string(text), &handler, {kMaxSteps, kMaxSize});
    const auto expected =
        jsw::test::replaceNaively(std::string(text), handler, kMaxSteps, kMaxSize);
    if (expected && (!result.complete || result.text != *expected)) std::abort();
    if (result.text.size() > text.size() + kMaxSize) std::abort();
    return 0;
}
