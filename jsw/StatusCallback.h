#pragma once

#include <jsw/jsw.h>

#include <cstdint>

namespace jsw {

/// The driver's status callback of this process; null when it wants none. May be set and called on
/// different threads.
void setStatusCallback(JswStatusCallback callback);

/// Calls the driver's status callback, if there is one, on this thread.
void reportStatus(std::uint32_t status);

/// Whether this thread is inside the driver's status callback.
bool isInsideStatusCallback();

}  // namespace jsw
