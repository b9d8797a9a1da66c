#include "PublicLib/win/Wait.h"

namespace jsw {

DWORD waitServingWindows(HANDLE object) {
    for (;;) {
        const DWORD result =
            MsgWaitForMultipleObjectsEx(1, &object, INFINITE, QS_SENDMESSAGE, MWMO_INPUTAVAILABLE);
        if (result == WAIT_FAILED) return WaitForSingleObject(object, INFINITE);
        if (result != WAIT_OBJECT_0 + 1) return result;
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
}

}  // namespace jsw
