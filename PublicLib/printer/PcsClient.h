#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "PublicLib/printer/PcsFunctions.h"
#include "PublicLib/win/Handles.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace jsw {

/// The printer maker's device client library, loaded by name and asked by entry point. The library
/// is loaded and initialised, and a client id taken, while a call or an open handle needs them.
///
/// Every operation answers a Win32 error number: the library's own when the call was made, else
/// 126 (the library cannot be loaded or initialised; acquire() and install() answer the system's
/// own number for that), 127 (it lacks the entry point), 1 (the handle was not opened through this
/// object) or the error of the server's name or of getting a client id; 8 when memory is short, 574
/// when the library raised an exception. No operation throws.
///
/// Any thread may call. The bound functions are called outside the locks, but the library's start
/// and end and its client ids are asked for inside them: there it must not wait for another caller
/// of this object. Where the server's name was refused, only that thread can use client ids from
/// then on.
class PcsClient {
  public:
    /// Loads nothing yet.
    /// @param dllName     file name or path of the library
    /// @param serverName  host whose library is meant; empty for this computer
    /// @param keepLoaded  keeps the library loaded after its last user, until the object goes
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

    /// Who holds what at this moment.
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

    /// A function of the library with its arguments: to be made with the entry point and, where it
    /// takes one, the client id.
    class Call {
      public:
        virtual PcsStatus make(EntryPoint entryPoint, JswDeviceClientId clientId) const = 0;

      protected:
        ~Call() = default;
    };
    template <class Make>
    class CallMadeBy final : public Call {
      public:
        explicit CallMadeBy(const Make& make) : make_(make) {}
        PcsStatus make(EntryPoint entryPoint, JswDeviceClientId clientId) const override {
            return make_(entryPoint, clientId);
        }

      private:
        Make make_;
    };

    template <class... Arguments>
    static auto withClientId(Arguments... arguments) {
        return CallMadeBy([=](EntryPoint entryPoint, JswDeviceClientId clientId) {
            using Function = PcsStatus(JswDeviceClientId, Arguments...);
            return reinterpret_cast<Function*>(entryPoint)(clientId, arguments...);
        });
    }
    template <class... Arguments>
    static auto withoutClientId(Arguments... arguments) {
        return CallMadeBy([=](EntryPoint entryPoint, JswDeviceClientId) {
            using Function = PcsStatus(Arguments...);
            return reinterpret_cast<Function*>(entryPoint)(arguments...);
        });
    }

    // The call families.
    template <class... Arguments>
    PcsStatus perCall(const char* operation, Arguments... arguments) {
        return callOnce(operation, withClientId(arguments...), GivesUp::library);
    }
    template <class... Arguments>
    PcsStatus perCallHid(const char* operation, Arguments... arguments) {
        return callOnce(operation, withClientId(arguments...), GivesUp::clientId);
    }
    template <PcsDevice device>
    PcsStatus opening(const char* operation, PcsHandle handle) {
        return open(operation, handle, device, withClientId(handle));
    }
    template <class... Arguments>
    PcsStatus byHandle(const char* operation, PcsHandle handle, Arguments... arguments) {
        return callByHandle(operation, handle, withClientId(handle, arguments...));
    }
    PcsStatus closing(const char* operation, PcsHandle handle) {
        return close(operation, handle);
    }
    template <class... Arguments>
    PcsStatus serviceCall(const char* operation, Arguments... arguments) {
        return callService(operation, withoutClientId(arguments...));
    }
    template <class... Arguments>
    PcsStatus installCall(const char* operation, Arguments... arguments) {
        return callInstall(operation, withoutClientId(arguments...));
    }

    PcsStatus callOnce(const char* operation, const Call& call, GivesUp onClientIdFailure);
    PcsStatus open(const char* operation, PcsHandle handle, PcsDevice device, const Call& call);
    PcsStatus callByHandle(const char* operation, PcsHandle handle, const Call& call);
    PcsStatus close(const char* operation, PcsHandle handle);
    PcsStatus callService(const char* operation, const Call& call);
    PcsStatus callInstall(const char* operation, const Call& call);

    PcsStatus acquireLibrary();
    PcsStatus loadLibrary();
    PcsStatus acquireClientId(JswDeviceClientId& clientId);
    PcsStatus askForClientId();
    PcsStatus acquireForCall(JswDeviceClientId& clientId, GivesUp onClientIdFailure);
    void releaseLibrary();
    void releaseClientId();
    void releaseUnopened(PcsDevice device);
    void unload();
    /// Calls an entry point of the library; 127 when it is null, 574 when it does not return.
    static PcsStatus callLibrary(const char* operation, const Call& call, EntryPoint entryPoint,
                                 JswDeviceClientId clientId = 0);
    EntryPoint find(const char* operation) const;
    static EntryPoint findIn(HMODULE library, const char* operation);

    /// A record of its own for a handle, empty when memory is short.
    static OpenHandles::node_type makeRecord(PcsHandle handle, PcsDevice device);
    void remember(OpenHandles::node_type record);
    /// The client id with which a handle was opened; nothing for one that is not open.
    std::optional<JswDeviceClientId> clientIdOf(PcsHandle handle);
    /// Takes one open off a handle's record; false when none was left.
    bool forget(PcsHandle handle);
    struct OpenCount {
        PcsHandle handle;
        std::uint32_t count;
    };
    /// The first open handle of a kind beyond a handle, or of all.
    std::optional<OpenCount> nextOpen(PcsDevice device, std::optional<PcsHandle> after);
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
