#pragma once

#include "tests/job/JobTest.h"

namespace jsw::test {

/// Runs jobs with the sample modules of the project, their real window included. The log is off.
class SampleJobTest : public JobTest {
  protected:
    void SetUp() override;
    /// A job with a few pages and not much ink; its number varies what is printed.
    void sampleJob(int number);
};

}  // namespace jsw::test
