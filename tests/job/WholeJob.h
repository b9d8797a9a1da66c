#pragma once

#include "PublicLib/win/Handles.h"
#include "tests/job/JobTest.h"
#include "tests/job/RecordedShell.h"
#include "tests/support/ImportTable.h"

#include <string>
#include <vector>

namespace jsw::test {

/// Runs jobs with everything that a driver and a user can do: a billboard is chosen, pages are
/// printed, every action is clicked, an address queries the printer's device, values are saved, a
/// prompt is shown, the window reports an event, an update is due at the end. No program is really
/// started.
class WholeJobTest : public JobTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Restores the store to its state before the first job.
    /// @param levels  of the log, in all components; 0: the log is off
    void prepare(std::uint32_t levels);
    /// A whole job; returns what the modules, the driver and the shell recorded.
    /// @param patience  milliseconds to wait for the rules
    std::vector<std::string> wholeJob(DWORD patience);

    const ModuleHandle library_{LoadLibraryA("jsw.dll")};
    const ImportTable imports_{library_.get()};
    RecordedShell shell_;

  private:
    bool rulesEnd(DWORD patience) const;
    void useWindow();
};

}  // namespace jsw::test
