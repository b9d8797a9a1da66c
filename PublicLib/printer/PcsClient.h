#pragma once

#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/PcsFunctions.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/LoadLibrary.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace jsw {

/// The printer maker's device client library, loaded by name and called by entry point. While a
/// call or an open handle needs them, the library is loaded and initialised, and a client id is
/// taken.
///
/// Every operation returns a Win32 error number: the library's, if the call was made; 126: the
/// library cannot be loaded or initialised (acquire() and install() return the system's number
/// instead); 127: the entry point is missing; 1: the handle was not opened through this object; 8:
/// out of memory; 574: the library raised an exception; or the error of the server's name or of
/// getting a client id. No operation throws.
///
/// Thread-safe. The bound functions are called outside the locks. The library's initialisation, its
/// end and its client ids are requested inside them: there the library must not wait for another
/// caller of this object. After a refused server name only that thread can use client ids, see
/// "Fixed interfaces" in docs/architecture.md.
class PcsClient {
  public:
    /// Loads nothing yet.
    /// @param dllName     file name or path of the library
    /// @param serverName  host of the library; empty: this computer
    /// @param keepLoaded  keeps the library loaded after its last user, until destruction
    PcsClient(std::string dllName, std::string serverName, bool keepLoaded);
    /// Closes the handles that are still open.
    virtual ~PcsClient();
    PcsClient(const PcsClient&) = delete;
    PcsClient& operator=(const PcsClient&) = delete;

    // The operations, in slot order.
#define JSW_PCS_WRAPPER(family, operation, SHAPE)         \
    virtual PcsStatus operation(JSW_PCS_PARAMS_##SHAPE) { \
        return family(#operation, JSW_PCS_ARGS_##SHAPE);  \
    }
#define JSW_PCS_OWN(operation) virtual PcsStatus operation();
    JSW_PCS_OPERATIONS(JSW_PCS_WRAPPER, JSW_PCS_OWN)
#undef JSW_PCS_WRAPPER
#undef JSW_PCS_OWN

    /// The present numbers of users.
    std::int32_t libraryUsers() const;
    std::uint32_t clientIdUsers() const;
    bool isLoaded() const;

  private:
    struct OpenHandle {
        JswDeviceClientId clientId;
        std::uint32_t openCount;
        PcsDevice device;
    };
    using OpenHandles = std::map<PcsHandle, OpenHandle>;
    enum class GivesUp { library, clientId };
    using EntryPoint = void (*)();

    static constexpr PcsStatus kHandleNotOpen = ERROR_INVALID_FUNCTION;
    static constexpr PcsStatus kLibraryRaised = 574;  // ERROR_UNHANDLED_EXCEPTION

    // The call families. Each traces its operation.

    /// Takes library and client id for this call only.
    template <class... Arguments>
    PcsStatus perCall(const char* operation, Arguments... arguments) {
        return callOnce(operation, GivesUp::library, arguments...);
    }
    /// The same, but without a client id it keeps the library: a fixed interface.
    template <class... Arguments>
    PcsStatus perCallHid(const char* operation, Arguments... arguments) {
        return callOnce(operation, GivesUp::clientId, arguments...);
    }
    template <class... Arguments>
    PcsStatus callOnce(const char* operation, GivesUp onClientIdFailure, Arguments... arguments) {
        MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
        JswDeviceClientId clientId = 0;
        PcsStatus status = acquireForCall(clientId, onClientIdFailure);
        if (status != ERROR_SUCCESS) return trace.returning(status);
        status = callLibrary(operation, find(operation), clientId, arguments...);
        release();
        return trace.returning(status);
    }
    /// Takes library and client id until the handle is closed.
    template <PcsDevice device>
    PcsStatus opening(const char* operation, PcsHandle handle) {
        return open(operation, handle, device);
    }
    PcsStatus open(const char* operation, PcsHandle handle, PcsDevice device);
    /// Uses what the open of the handle has taken.
    template <class... Arguments>
    PcsStatus byHandle(const char* operation, PcsHandle handle, Arguments... arguments) {
        MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
        const auto clientId = clientIdOf(handle);
        if (!clientId) return trace.returning(kHandleNotOpen);
        return trace.returning(
            callLibrary(operation, find(operation), *clientId, handle, arguments...));
    }
    PcsStatus closing(const char* operation, PcsHandle handle);
    /// Takes the library only.
    template <class... Arguments>
    PcsStatus serviceCall(const char* operation, Arguments... arguments) {
        MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
        if (acquireLibrary() != ERROR_SUCCESS) {
            return trace.returning<PcsStatus>(ERROR_MOD_NOT_FOUND);
        }
        const PcsStatus status = callLibrary(operation, find(operation), arguments...);
        releaseLibrary();
        return trace.returning(status);
    }
    /// Loads the library for this call only and does not initialise it.
    template <class... Arguments>
    PcsStatus installCall(const char* operation, Arguments... arguments) {
        MethodTrace trace(component::kJsw, "PcsClient::", operation, ": ");
        const ModuleHandle library = loadLibraryQuietly(dllName_);
        if (!library) return trace.returning<PcsStatus>(GetLastError());
        return trace.returning(
            callLibrary(operation, findIn(library.get(), operation), arguments...));
    }

    /// Calls an entry point of the library; 127 if it is null, 574 if it does not return.
    template <class... Arguments>
    static PcsStatus callLibrary(const char* operation, EntryPoint entryPoint,
                                 Arguments... arguments) {
        if (entryPoint == nullptr) return ERROR_PROC_NOT_FOUND;
        using Function = PcsStatus(Arguments...);
        CallEnd end{};
        const PcsStatus status = callForeign(
            component::kJsw, entryPointName(operation).data(),
            [&] { return reinterpret_cast<Function*>(entryPoint)(arguments...); }, end);
        return end == CallEnd::returned ? status : kLibraryRaised;
    }
    EntryPoint find(const char* operation) const;
    static EntryPoint findIn(HMODULE library, const char* operation);
    /// "getCachePrinter" becomes the library's "PcsGetCachePrinter". Allocates nothing, so that
    /// references can be released even if memory is exhausted.
    static std::array<char, 64> entryPointName(std::string_view operation);

    PcsStatus acquireLibrary();
    PcsStatus loadLibrary();
    PcsStatus acquireClientId(JswDeviceClientId& clientId);
    PcsStatus askForClientId();
    PcsStatus acquireForCall(JswDeviceClientId& clientId, GivesUp onClientIdFailure);
    void releaseLibrary();
    void releaseClientId();
    void unload();
    /// The client id with which a handle was opened; nothing if it is not open.
    std::optional<JswDeviceClientId> clientIdOf(PcsHandle handle);
    /// Removes one open from a handle's record; false if there is none.
    bool forget(PcsHandle handle);
    /// The first open handle of a kind after the given one, or the first of all, with its count of
    /// opens.
    std::optional<std::pair<PcsHandle, std::uint32_t>> nextOpen(PcsDevice device,
                                                                std::optional<PcsHandle> after);
    PcsStatus closeAll(PcsDevice device);

    JswDeviceClientId clientId_ = 0;
    std::string serverName_;
    std::string dllName_;
    OpenHandles openHandles_;
    std::uint32_t clientIdUsers_ = 0;
    mutable CriticalSection clientIdLock_;  // clientId_, clientIdUsers_
    CriticalSection handleMapLock_;         // openHandles_
    mutable CriticalSection libraryLock_;   // library_, libraryUsers_
    ModuleHandle library_;
    std::int32_t libraryUsers_ = 0;
    bool keepLoaded_;
};

}  // namespace jsw
