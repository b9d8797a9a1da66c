#pragma once

#include <windows.h>

namespace jsw {

/// Waits without a time limit for a thread, event or mutex; answers what WaitForSingleObject would.
/// Meanwhile the messages that other threads send to windows of this thread are served, because
/// whoever is waited for may be waiting for one of them. Posted messages stay in the queue.
DWORD waitServingWindows(HANDLE object);

}  // namespace jsw
