#pragma once

#include "tests/support/PrivateRegistry.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw::test {

/// A test inside a host program: a private registry with an empty local store, Localize for the
/// test program, and a log of its own.
class HostTest : public ::testing::Test {
  public:
    /// Switches the log on, with all levels and no clock.
    static void switchLogOn();

  protected:
    void SetUp() override;
    void TearDown() override;

    /// The same, and creates the process's logger.
    static void startLog();
    /// All lines of the log so far, each without its component column.
    static std::vector<std::string> logLines();
    /// Whether a line of the log equals, or contains, the text.
    static bool hasLine(const std::string& line);
    static bool logContains(const std::string& text);
    static std::string logPath();
    /// For child processes that join the private registry.
    const std::string& registryPath() const { return registry_->path(); }

    TempFolder folder_;

  private:
    std::unique_ptr<PrivateRegistry> registry_;
};

}  // namespace jsw::test
