// PcsClient's references: the library, the client id and the open handles.

#include "PublicLib/printer/PcsClient.h"
#include "PublicLib/win/EntryPoint.h"

#include <cctype>
#include <mutex>

namespace jsw {

PcsClient::PcsClient(std::string dllName, std::string serverName, bool keepLoaded)
    : serverName_(std::move(serverName)), dllName_(std::move(dllName)), keepLoaded_(keepLoaded) {
}

PcsClient::~PcsClient() {
    for (const auto device :
         {PcsDevice::printer, PcsDevice::hid, PcsDevice::scanner, PcsDevice::cardReader}) {
        closeAll(device);
    }
    if (library_) unload();
}

PcsStatus PcsClient::acquireLibrary() {
    const std::lock_guard lock(libraryLock_);
    if (libraryUsers_ == 0 && !library_) {
        const PcsStatus status = loadLibrary();
        if (status != ERROR_SUCCESS) return status;
    }
    ++libraryUsers_;
    return ERROR_SUCCESS;
}

/// Called under libraryLock_. A library that does not initialise is freed, so that the next call
/// tries again.
PcsStatus PcsClient::loadLibrary() {
    ModuleHandle library = loadLibraryQuietly(dllName_);
    if (!library) return GetLastError();
    const EntryPoint entryPoint = findIn(library.get(), "initialize");
    if (callLibrary("initialize", entryPoint) != ERROR_SUCCESS) {
        const PcsStatus error = GetLastError();
        // A library may fail without setting an error; that must not count as success.
        return error != ERROR_SUCCESS ? error : ERROR_DLL_INIT_FAILED;
    }
    library_ = std::move(library);
    return ERROR_SUCCESS;
}

PcsStatus PcsClient::acquireClientId(JswDeviceClientId& clientId) {
    std::unique_lock lock(clientIdLock_);
    if (const PcsStatus status = checkServerName(); status != ERROR_SUCCESS) {
        // The lock stays held: see "Fixed interfaces" in docs/architecture.md.
        lock.release();
        return status;
    }
    if (clientIdUsers_ == 0) {
        if (const PcsStatus status = askForClientId(); status != ERROR_SUCCESS) return status;
    }
    ++clientIdUsers_;
    clientId = clientId_;
    return ERROR_SUCCESS;
}

/// Called under clientIdLock_. Reads the library without its lock, which is never taken inside this
/// one: the caller's reference keeps it loaded.
PcsStatus PcsClient::askForClientId() {
    const EntryPoint entryPoint = findIn(library_.get(), "getClientId");
    if (entryPoint == nullptr) return GetLastError();
    JswDeviceClientId clientId = 0;
    const PcsStatus status = callLibrary("getClientId", entryPoint, &clientId, serverName_.c_str());
    clientId_ = status == ERROR_SUCCESS ? clientId : 0;
    return status;
}

PcsStatus PcsClient::acquireForCall(JswDeviceClientId& clientId, GivesUp onClientIdFailure) {
    if (acquireLibrary() != ERROR_SUCCESS) return ERROR_MOD_NOT_FOUND;
    const PcsStatus status = acquireClientId(clientId);
    if (status == ERROR_SUCCESS) return status;
    if (onClientIdFailure == GivesUp::library) {
        releaseLibrary();
    } else {  // the library stays loaded: a fixed interface
        releaseClientId();
    }
    return status;
}

void PcsClient::releaseClientId() {
    const std::lock_guard lock(clientIdLock_);
    if (clientIdUsers_ > 0) --clientIdUsers_;
    if (clientIdUsers_ == 0) clientId_ = 0;
}

void PcsClient::releaseLibrary() {
    const std::lock_guard lock(libraryLock_);
    if (libraryUsers_ > 0) --libraryUsers_;
    if (libraryUsers_ <= 0 && library_ && !keepLoaded_) unload();
}

/// Called under libraryLock_ or in the destructor.
void PcsClient::unload() {
    callLibrary("uninitialize", findIn(library_.get(), "uninitialize"));
    library_.reset();
    libraryUsers_ = 0;
}

/// Also null if the library is not loaded.
PcsClient::EntryPoint PcsClient::find(const char* operation) const {
    const std::lock_guard lock(libraryLock_);
    return library_ ? findIn(library_.get(), operation) : nullptr;
}

PcsClient::EntryPoint PcsClient::findIn(HMODULE library, const char* operation) {
    return findEntryPoint<void()>(library, entryPointName(operation).data());
}

std::array<char, 64> PcsClient::entryPointName(std::string_view operation) {
    std::array<char, 64> name{'P', 'c', 's'};
    operation.copy(name.data() + 3, name.size() - 4);
    name[3] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[3])));
    return name;
}

std::optional<JswDeviceClientId> PcsClient::clientIdOf(PcsHandle handle) {
    const std::lock_guard lock(handleMapLock_);
    const auto entry = openHandles_.find(handle);
    if (entry == openHandles_.end()) return std::nullopt;
    return entry->second.clientId;
}

bool PcsClient::forget(PcsHandle handle) {
    const std::lock_guard lock(handleMapLock_);
    const auto entry = openHandles_.find(handle);
    if (entry == openHandles_.end()) return false;
    if (--entry->second.openCount == 0) openHandles_.erase(entry);
    return true;
}

std::optional<std::pair<PcsHandle, std::uint32_t>> PcsClient::nextOpen(
    PcsDevice device, std::optional<PcsHandle> after) {
    const std::lock_guard lock(handleMapLock_);
    auto entry = after ? openHandles_.upper_bound(*after) : openHandles_.begin();
    for (; entry != openHandles_.end(); ++entry) {
        if (entry->second.device == device) return {{entry->first, entry->second.openCount}};
    }
    return std::nullopt;
}

/// Closes each handle as often as it is open at its turn. Always ends, even if a handle cannot be
/// closed. Returns the last failure of a close, if any.
PcsStatus PcsClient::closeAll(PcsDevice device) {
    static constexpr const char* kClose[]{"closePrinter", "closeHid", "closeScanner",
                                          "closeCardReader"};
    PcsStatus result = ERROR_SUCCESS;
    std::optional<PcsHandle> last;
    while (const auto open = nextOpen(device, last)) {
        const auto [handle, count] = *open;
        for (std::uint32_t i = 0; i < count; ++i) {
            const PcsStatus status = closing(kClose[static_cast<int>(device)], handle);
            if (status != ERROR_SUCCESS) result = status;
        }
        last = handle;
    }
    return result;
}

std::int32_t PcsClient::libraryUsers() const {
    const std::lock_guard lock(libraryLock_);
    return libraryUsers_;
}

std::uint32_t PcsClient::clientIdUsers() const {
    const std::lock_guard lock(clientIdLock_);
    return clientIdUsers_;
}

bool PcsClient::isLoaded() const {
    const std::lock_guard lock(libraryLock_);
    return static_cast<bool>(library_);
}

}  // namespace jsw
