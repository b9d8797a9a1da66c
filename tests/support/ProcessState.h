#pragma once

#include <cstddef>
#include <cstdint>

namespace jsw::test {

/// This process's resources. Compare two of them around work that should leave nothing behind.
struct ProcessState {
    std::uintptr_t nextHandle = 0;  ///< the lowest free handle, which a leak raises
    std::size_t threads = 0;
    std::size_t freeTlsIndexes = 0;
    std::size_t heapBytes = 0;  ///< allocated in all heaps of the process
};

/// Measures; nothing else in the process should run meanwhile.
ProcessState processState();

}  // namespace jsw::test
