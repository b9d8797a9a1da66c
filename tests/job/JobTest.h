#pragma once

#include "jsw/settings/Settings.h"
#include "tests/job/Script.h"
#include "tests/support/Eventually.h"
#include "tests/support/HostTest.h"
#include <jsw/jsw.h>

#include <windows.h>

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace jsw::test {

/// The exported functions of the real jsw.dll.
struct Exports {
    decltype(&JSWInit) init;
    decltype(&JSWTerminate) terminate;
    decltype(&JSWUpdateInfo) updateInfo;
    decltype(&JSWDisplayPrompt) displayPrompt;
    decltype(&JSWPostDlgMsg) postDlgMsg;
    decltype(&JSWFilterDllMsg) filterDllMsg;
    decltype(&JSWGetAPIVersion) getApiVersion;
    decltype(&JSWGetWindowHwnd) getWindowHwnd;
};

/// The functions of a loaded library.
/// @throws std::runtime_error with the name of one that is missing
Exports findExports(HMODULE library);

/// A test's job; names and counts matter only to tests that mention them.
struct TestJob {
    const char* friendlyName = "SimulatedPrinter";
    const char* jobName = "report.pdf";
    std::uint32_t totalPages = 3;
    JswStatusCallback callback = nullptr;
};

/// Runs jobs through the real jsw.dll with scripted modules. The log is on; the catalog knows the
/// billboard DEFAULT with the existing file "default.bb".
class JobTest : public HostTest {
  protected:
    void SetUp() override;
    void TearDown() override;

    /// Creates a missing local store and writes what every test's job needs.
    void writeSettings() const;
    std::uint8_t startJob(const TestJob& job = {});
    /// The same on a system without the XML parser.
    std::uint8_t startJobWithoutParser(const TestJob& job = {});
    void endJob() { api_.terminate(); }
    /// A whole job in which all rules are processed.
    void runJob();
    /// Waits until the rules engine has been freed; false after ten seconds.
    bool waitForRules();
    /// Whether another thread can reach the window; not if a lock is still held.
    bool anotherThreadGetsThrough();
    /// Makes the modules work normally; then a plain job with a billboard must work completely.
    void expectNextJobWorks();
    /// Copies the older window's module, legacyModule_, to where the library looks for it, until
    /// the end of the test.
    void installLegacyModule();
    /// Adds a billboard whose file exists to the catalog.
    void addBillboard(const std::string& id, Script::Billboard billboard);
    std::vector<std::string> viewCalls(const std::string& name) const;
    std::vector<std::string> historyIds() const;
    void setHistory(const std::vector<std::string>& ids) const;

    static Exports api_;
    Script script_;
    InkInfo inkInfo_{};
    std::string legacyModule_;
};

}  // namespace jsw::test
