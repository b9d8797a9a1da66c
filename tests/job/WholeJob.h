#pragma once

#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"

#include <string>
#include <vector>

namespace jsw::test {

/// Runs jobs in which everything happens that a driver and a user can do: a billboard is chosen,
/// pages go out, every action is clicked, a printer's device is asked for what an address tells of
/// it, values are saved, a prompt comes up, the window reports an event, an update is due at the
/// end. Nothing is really started.
class WholeJobTest : public JobTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Puts the store back to where it was before the first job.
    /// @param levels  of the log, in all components; 0: the log is off
    void prepare(std::uint32_t levels);
    /// A whole job; answers what the modules, the driver and the shell saw of it.
    /// @param patience  milliseconds that the rules may take before the job goes on without them
    std::vector<std::string> wholeJob(DWORD patience);

    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
    const ImportTable imports_{library_.get()};
    RecordedShell shell_;

  private:
    bool rulesEnd(DWORD patience) const;
    void useWindow();
};

}  // namespace jsw::test
