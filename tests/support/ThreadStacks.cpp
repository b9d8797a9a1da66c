#include "tests/support/ThreadStacks.h"

#include "PublicLib/win/Handles.h"

#include <windows.h>

#include <tlhelp32.h>

#include <array>
#include <cstdio>

namespace jsw::test {

namespace {

struct Frames {
    std::array<DWORD64, 40> addresses{};
    std::size_t count = 0;
};

Frames walk(CONTEXT context) {
    Frames frames;
    while (context.Rip != 0 && frames.count < frames.addresses.size()) {
        frames.addresses[frames.count++] = context.Rip;
        DWORD64 base = 0;
        if (auto* entry = RtlLookupFunctionEntry(context.Rip, &base, nullptr)) {
            void* handlerData = nullptr;
            DWORD64 frame = 0;
            RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, entry, &context, &handlerData,
                             &frame, nullptr);
            continue;
        }
        MEMORY_BASIC_INFORMATION memory{};
        const auto* stack = reinterpret_cast<const DWORD64*>(context.Rsp);
        if (VirtualQuery(stack, &memory, sizeof(memory)) == 0 || memory.State != MEM_COMMIT) break;
        context.Rip = *stack;  // a function without a frame: its caller stands on top
        context.Rsp += sizeof(*stack);
    }
    return frames;
}

std::string describe(DWORD64 address) {
    MEMORY_BASIC_INFORMATION memory{};
    VirtualQuery(reinterpret_cast<void*>(address), &memory, sizeof(memory));
    std::array<char, MAX_PATH> path{};
    GetModuleFileNameA(static_cast<HMODULE>(memory.AllocationBase), path.data(), MAX_PATH);
    std::string name = path.data();
    name.erase(0, name.rfind('\\') + 1);
    return name + "+" + hexText(address - reinterpret_cast<DWORD64>(memory.AllocationBase));
}

void write(const Frames& frames) {
    for (std::size_t i = 0; i < frames.count; ++i) {
        writeError("    " + describe(frames.addresses[i]) + "\n");
    }
}

void writeStackOf(DWORD threadId) {
    const KernelHandle thread(
        OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, threadId));
    if (!thread || SuspendThread(thread.get()) == static_cast<DWORD>(-1)) return;
    CONTEXT context{};
    context.ContextFlags = CONTEXT_FULL;
    Frames frames;
    if (GetThreadContext(thread.get(), &context) != FALSE) frames = walk(context);
    ResumeThread(
        thread.get());  // before anything is written: it may hold a lock that writing takes
    writeError("  thread " + std::to_string(threadId) + ":\n");
    write(frames);
}

}  // namespace

std::string hexText(std::uint64_t number) {
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "0x%llx", static_cast<unsigned long long>(number));
    return text.data();
}

void writeError(const std::string& text) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()),
              &written, nullptr);
}

void writeStack(const CONTEXT& context) {
    write(walk(context));
}

void writeOtherStacks() {
    const KernelHandle snapshot(CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0));
    THREADENTRY32 entry{};
    entry.dwSize = sizeof(entry);
    for (BOOL more = Thread32First(snapshot.get(), &entry); more != FALSE;
         more = Thread32Next(snapshot.get(), &entry)) {
        if (entry.th32OwnerProcessID == GetCurrentProcessId() &&
            entry.th32ThreadID != GetCurrentThreadId()) {
            writeStackOf(entry.th32ThreadID);
        }
    }
}

}  // namespace jsw::test
