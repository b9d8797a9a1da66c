#pragma once

#include <string>

namespace jsw::test {

/// Gives every test a time of its own, 30 seconds or what the environment variable
/// JSW_TEST_SECONDS says. A test that takes longer, faults or aborts ends the program at once with
/// a failure and its name.
void installTestLimits();

/// Gives the running test so many seconds from now on.
void allowSeconds(unsigned seconds);

/// Says what the running test is doing, for the report of its end; empty: nothing special.
void describeStep(const std::string& step);

}  // namespace jsw::test
