#pragma once

#include <string>

namespace jsw::test {

/// Limits the time of every test to 30 seconds, or to the environment variable JSW_TEST_SECONDS. A
/// test that takes longer, crashes or aborts ends the program at once with a failure and its name.
void installTestLimits();

/// Gives the running test this number of seconds from now on.
void allowSeconds(unsigned seconds);

/// Sets what the running test is doing, for its failure report; may be empty.
void describeStep(const std::string& step);

}  // namespace jsw::test
