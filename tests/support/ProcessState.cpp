#include "tests/support/ProcessState.h"

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <tlhelp32.h>

#include <array>
#include <vector>

namespace jsw::test {

namespace {

/// Windows allocates the lowest free handle. (Wine does not count a process's handles.)
std::uintptr_t nextHandle() {
    const KernelHandle event(CreateEventA(nullptr, FALSE, FALSE, nullptr));
    return reinterpret_cast<std::uintptr_t>(event.get());
}

std::size_t countThreads() {
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    std::size_t count = 0;
    THREADENTRY32 entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Thread32First(snapshot.get(), &entry); more != FALSE;
         more = Thread32Next(snapshot.get(), &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId()) ++count;
    }
    return count;
}

/// Allocates all that are left and frees them.
std::size_t countFreeTlsIndexes() {
    std::vector<DWORD> taken;
    taken.reserve(2048);
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) {
        taken.push_back(index);
    }
    for (const DWORD index : taken) TlsFree(index);
    return taken.size();
}

std::size_t bytesOf(HANDLE heap) {
    std::size_t bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != FALSE) {
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) bytes += entry.cbData;
    }
    HeapUnlock(heap);
    return bytes;
}

/// The C run-time library has its own heap.
std::size_t countHeapBytes() {
    std::array<HANDLE, 64> heaps{};
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    std::size_t bytes = 0;
    for (DWORD i = 0; i < count && i < heaps.size(); ++i) bytes += bytesOf(heaps[i]);
    return bytes;
}

}  // namespace

ProcessState processState() {
    ProcessState state;
    state.nextHandle = nextHandle();
    state.threads = countThreads();
    state.freeTlsIndexes = countFreeTlsIndexes();
    state.heapBytes = countHeapBytes();
    return state;
}

}  // namespace jsw::test
