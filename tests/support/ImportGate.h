#pragma once

#include "tests/support/ImportTable.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace jsw::test {

/// How a function of the system fails.
struct Failure {
    std::uint64_t answer = 0;  ///< in the register of the result
    DWORD lastError = ERROR_ACCESS_DENIED;
    /// The work is done before the failure is answered: for what gives something back, which a
    /// real system keeps no more after a failure than after success. At most four arguments.
    bool afterCall = false;
};

/// Stands in front of every function that a loaded library imports, counts the calls, and lets one
/// of them fail. Calls of any thread are counted; arguments are of no concern. The thunks are
/// restored when it goes.
class ImportGate {
  public:
    explicit ImportGate(const ImportTable& table);
    ImportGate(const ImportGate&) = delete;
    ImportGate& operator=(const ImportGate&) = delete;

    /// How often the function was called since the gate was made or reset.
    /// @throws std::invalid_argument when the library does not import it
    std::uint32_t calls(const std::string& name) const;
    /// Lets one call of the function fail, the first being number 1, counted from the last reset.
    void fail(const std::string& name, std::uint32_t call, const Failure& failure);
    /// Lets this call of the function fail and all after it, until the next reset.
    void failFrom(const std::string& name, std::uint32_t call, const Failure& failure);
    /// Whether the failure asked for has been answered.
    bool hasFailed() const;
    /// Starts counting anew and lets nothing fail.
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
    Entry& prepareFailure(const std::string& name, const Failure& failure, bool failsOn);

    // Kept for good: a thread may be on its way through one when the gate goes.
    std::vector<Entry*> entries_;
    std::vector<std::unique_ptr<ThunkOverride>> overrides_;
};

}  // namespace jsw::test
