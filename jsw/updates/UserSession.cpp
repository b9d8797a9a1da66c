#include "jsw/updates/UserSession.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/LoadLibrary.h"

namespace jsw {

namespace {
using CreateBlock = BOOL WINAPI(void** block, HANDLE token, BOOL inherit);
using DestroyBlock = BOOL WINAPI(void* block);
using ActiveConsoleSessionId = DWORD WINAPI();
}  // namespace

DWORD activeConsoleSession() {
    const ModuleHandle kernel = loadSystemLibrary("kernel32.dll");
    auto* sessionId =
        findEntryPoint<ActiveConsoleSessionId>(kernel.get(), "WTSGetActiveConsoleSessionId");
    return sessionId != nullptr ? sessionId() : 0;
}

std::string UserEnvironment::create(HANDLE token) {
    std::string path;
    library_ = loadSystemLibrary("userenv.dll", &path);
    if (!library_) return concat("API LoadLibrary(", path, ") failed, lastErr=", GetLastError());
    auto* createBlock = findEntryPoint<CreateBlock>(library_.get(), "CreateEnvironmentBlock");
    if (createBlock == nullptr) {
        return concat("API GetProcAddr(CreateEnvironmentBlock) failed, lastErr=", GetLastError());
    }
    if (createBlock(&block_, token, FALSE) == FALSE) {
        const DWORD error = GetLastError();
        block_ = nullptr;
        return concat("API CreateEnvironmentBlock failed, LastErr=", error);
    }
    return {};
}

UserEnvironment::~UserEnvironment() {
    if (block_ == nullptr) return;
    auto* destroyBlock = findEntryPoint<DestroyBlock>(library_.get(), "DestroyEnvironmentBlock");
    if (destroyBlock != nullptr) destroyBlock(block_);
}

}  // namespace jsw
