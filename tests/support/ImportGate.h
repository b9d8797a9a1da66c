#pragma once

#include "tests/support/ImportTable.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace jsw::test {

/// The failure of a system function.
struct Failure {
    std::uint64_t answer = 0;  ///< the value of the result register
    DWORD lastError = ERROR_ACCESS_DENIED;
    /// The function runs before the failure is returned: for functions that release something, as a
    /// real system does even on failure. At most four arguments.
    bool afterCall = false;
};

/// Intercepts every function that a loaded library imports, counts the calls of all threads, and
/// lets one of them fail, whatever its arguments. The destructor restores the thunks.
class ImportGate {
  public:
    explicit ImportGate(const ImportTable& table);
    ImportGate(const ImportGate&) = delete;
    ImportGate& operator=(const ImportGate&) = delete;

    /// The function's number of calls since construction or reset.
    /// @throws std::invalid_argument if the library does not import it
    std::uint32_t calls(const std::string& name) const;
    /// Lets one call of the function fail, numbered from 1 since the last reset.
    /// @param on  all later calls fail, too, until the next reset
    void fail(const std::string& name, std::uint32_t call, const Failure& failure, bool on = false);
    /// Whether the requested failure has occurred.
    bool hasFailed() const;
    /// Resets the counts; nothing fails.
    void reset();

  private:
    struct Entry {
        std::string name;
        std::atomic<std::uint32_t> calls{0};
        std::atomic<std::uint32_t> failingCall{0};  // none
        std::atomic<bool> failsOn{false};           // and so do the calls after it
        Failure failure{};
    };

    static int decide(Entry* entry);
    static void* makeCode(Entry* entry, void* original);
    Entry& entry(const std::string& name) const;

    // Never freed: a thread may be inside one when the gate is destroyed.
    std::vector<Entry*> entries_;
    std::vector<std::unique_ptr<ThunkOverride>> overrides_;
};

}  // namespace jsw::test
