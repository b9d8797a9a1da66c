#pragma once

#include <cstddef>
#include <cstdint>

namespace jsw::test {

/// What this process holds. Two of them are compared around work that should leave no trace.
struct ProcessState {
    std::uintptr_t nextHandle = 0;  ///< the lowest free handle, which a leak moves up
    std::size_t threads = 0;
    std::size_t freeTlsIndexes = 0;
    std::size_t heapBytes = 0;  ///< given out by all heaps of the process
};

/// Takes stock; nothing else of the process should run meanwhile.
ProcessState processState();

}  // namespace jsw::test
