#pragma once

#include <windows.h>

namespace jsw {

/// Waits without a timeout for a thread, event or mutex; returns WaitForSingleObject's values.
/// Keeps serving the messages that other threads send to this thread's windows, because one of
/// these threads may hold the object. Posted messages stay in the queue.
DWORD waitServingWindows(HANDLE object);

}  // namespace jsw
