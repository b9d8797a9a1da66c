#include "jsw/settings/macros/TagScanner.h"
#include "tests/macros/NaiveReplacement.h"
#include "tests/support/FuzzSeeds.h"

#include <gtest/gtest.h>

#include <random>

namespace jsw {

namespace {

std::string replace(std::string_view text, std::map<std::string, std::string, std::less<>> values) {
    test::TagValues handler;
    handler.values = std::move(values);
    const auto result = replaceTags(std::string(text), &handler);
    EXPECT_TRUE(result.complete) << text;
    return result.text;
}

std::string randomText(std::mt19937& random, std::size_t maxLength) {
    constexpr std::string_view kCharacters = "__^^12a";
    std::string text(random() % (maxLength + 1), ' ');
    for (char& character : text) character = kCharacters[random() % kCharacters.size()];
    return text;
}

}  // namespace

TEST(TagScanner, FindsTagsAndExpandsTheirValues) {
    const struct {
        const char *text, *value1, *value2, *expected;
    } cases[] = {
        {"", "x", "y", ""},
        {"a_^1^_b_^2^__^1^_", "x", "", "axbx"},
        {"_^Unknown^_ _^1^_", "x", "y", "_^Unknown^_ x"},
        {"_^1^_ _^1 rest", "x", "y", "x _^1 rest"},  // no closing delimiter: the rest stays
        {"_^_ _^1^_", "x", "y", "_^_ x"},            // the delimiters share no character
        {"_^a_^1^_^_", "x", "y", "_^ax^_"},          // unknown name, then the tag inside it
        {"<_^1^_>", "a_^2^_b", "y", "<ayb>"},        // a tag in a value
        {"_^1^_2^_", "_^", "y", "y"},                // a tag formed with the text behind
        {"_^1^_^2^_", "_", "y", "y"},                // a delimiter formed with the text behind
        {"__^1^_", "^2^_", "y", "_^2^_"},            // what lies before is not looked at again
        {"_^1^__^2^_", "_^1^_", "y", "_^1^_y"},      // a value equal to its tag stays
    };
    for (const auto& test : cases) {
        EXPECT_EQ(replace(test.text, {{"1", test.value1}, {"2", test.value2}}), test.expected)
            << test.text;
    }
}

TEST(TagScanner, LeavesTheTextWithoutAHandler) {
    EXPECT_EQ(replaceTags("a_^1^_", nullptr).text, "a_^1^_");
}

TEST(TagScanner, EqualsTheNaiveReplacement) {
    std::mt19937 random(4711);
    for (int round = 0; round < 100'000; ++round) {
        std::string input = randomText(random, 40);
        for (int values = 0; values < 3; ++values) input += '\n' + randomText(random, 8);
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
    EXPECT_GT(test::replaySeeds(JSW_FUZZ_CORPUS "/tags"), 20);
}

TEST(TagScanner, StopsAtItsLimitsWhenAValueLeadsBackToItself) {
    const struct {
        const char *value1, *value2;
        const char* expected;  // with three nested replacements
    } cases[] = {
        {"_^2^_", "_^1^_", "a _^1^_ _^1^_"},
        {"<_^1^_", "", "a <<<<_^1^_ _^1^_"},
        {"_^1^__^1^_", "", "a _^1^__^1^__^1^__^1^__^1^_ _^1^_"},
    };
    for (const auto& test : cases) {
        test::TagValues handler;
        handler.values = {{"1", test.value1}, {"2", test.value2}};
        const TagLimits limits{.nestedReplacements = 3, .growth = 1000};
        const auto result = replaceTags("a _^1^_ _^1^_", &handler, limits);
        EXPECT_FALSE(result.complete);
        EXPECT_EQ(result.text, test.expected);
        EXPECT_EQ(handler.asked, 5U);
    }
}

TEST(TagScanner, StopsBeforeTheResultGrowsBeyondItsLimit) {
    test::TagValues handler;
    handler.values["1"] = "123456789";
    const TagLimits limits{.nestedReplacements = 0, .growth = 8};
    EXPECT_TRUE(replaceTags("_^1^__^1^_", &handler, limits).complete);
    const auto result = replaceTags("_^1^__^1^__^1^_", &handler, limits);
    EXPECT_FALSE(result.complete);
    EXPECT_EQ(result.text, "123456789123456789_^1^_");

    handler.values["1"] = std::string(1 << 20, 'x') + "_^1^_";
    EXPECT_LE(replaceTags("_^1^_", &handler).text.size(), 5 + TagLimits().growth);
}

}  // namespace jsw
