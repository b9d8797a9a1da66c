#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace jsw::test {

/// "0x" and the number in hexadecimal.
std::string hexText(std::uint64_t number);

/// Writes to the error stream without a lock of the C run-time library, which a thread that hangs
/// may hold.
void writeError(const std::string& text);

/// Writes where a thread is, one line for each frame, as module and offset.
/// @param context  as the thread was; consumed
void writeStack(const CONTEXT& context);

/// Writes where every other thread of the process is.
void writeOtherStacks();

}  // namespace jsw::test
