#include "PublicLib/locks/Mutex.h"

#include "PublicLib/errors/ErrorPlaces.h"

namespace jsw {

namespace {

/// Gives everyone access, by a null access list.
void openToEveryone(SECURITY_DESCRIPTOR& descriptor) {
    if (InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) == FALSE) {
        raiseLastError("Mutex::Mutex() InitializeSecurityDescriptor failed",
                       place::kMutexDescriptor);
    }
    if (SetSecurityDescriptorDacl(&descriptor, TRUE, nullptr, FALSE) == FALSE) {
        raiseLastError("Mutex::Mutex() SetSecurityDescriptorDacl failed", place::kMutexAccessList);
    }
}

}  // namespace

Mutex::Mutex(bool initialOwner, const std::string& name, bool withEveryoneAccess) {
    SECURITY_DESCRIPTOR descriptor{};
    SECURITY_ATTRIBUTES attributes{sizeof attributes, &descriptor, FALSE};
    if (withEveryoneAccess) openToEveryone(descriptor);
    handle_.reset(CreateMutexA(withEveryoneAccess ? &attributes : nullptr, initialOwner,
                               name.empty() ? nullptr : name.c_str()));
    if (!handle_) raiseLastError("Mutex::createMutex() CreateMutex failed", place::kMutexCreate);
    // A mutex that already exists is not acquired, even with initialOwner.
    isHeld_ = initialOwner && GetLastError() != ERROR_ALREADY_EXISTS;
}

Mutex::~Mutex() {
    if (isHeld_) ReleaseMutex(handle_.get());
}

bool Mutex::acquire(std::uint32_t timeoutMilliseconds) {
    switch (WaitForSingleObject(handle_.get(), timeoutMilliseconds)) {
        case WAIT_OBJECT_0:
        case WAIT_ABANDONED:
            isHeld_ = true;
            return true;
        case WAIT_TIMEOUT:
            return false;
        default:
            raiseLastError("Mutex::acquire() WaitForSingleObject failed", place::kMutexAcquire);
    }
}

void Mutex::release() {
    isHeld_ = false;  // before the release: the next thread may acquire it at once
    if (ReleaseMutex(handle_.get()) == FALSE) {
        raiseLastError("Mutex::release() ReleaseMutex failed", place::kMutexRelease);
    }
}

}  // namespace jsw
