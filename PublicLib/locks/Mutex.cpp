#include "PublicLib/locks/Mutex.h"

#include "PublicLib/errors/ErrorPlaces.h"

namespace jsw {

namespace {

/// Security attributes that let everyone in: an access list that is present but null.
class OpenToEveryone {
  public:
    OpenToEveryone() {
        if (InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) == FALSE) {
            raiseLastError("Mutex::Mutex() InitializeSecurityDescriptor failed",
                           place::kMutexDescriptor);
        }
        if (SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE) == FALSE) {
            raiseLastError("Mutex::Mutex() SetSecurityDescriptorDacl failed",
                           place::kMutexAccessList);
        }
    }

    SECURITY_ATTRIBUTES* attributes() { return &attributes_; }

  private:
    SECURITY_DESCRIPTOR descriptor_{};
    SECURITY_ATTRIBUTES attributes_{sizeof(SECURITY_ATTRIBUTES), &descriptor_, FALSE};
};

KernelHandle createMutex(SECURITY_ATTRIBUTES* attributes, bool initialOwner,
                         const std::string& name) {
    KernelHandle handle(
        CreateMutexA(attributes, initialOwner, name.empty() ? nullptr : name.c_str()));
    if (!handle) raiseLastError("Mutex::createMutex() CreateMutex failed", place::kMutexCreate);
    return handle;
}

}  // namespace

Mutex::Mutex(bool initialOwner, const std::string& name, bool withEveryoneAccess) {
    if (withEveryoneAccess) {
        OpenToEveryone everyone;
        handle_ = createMutex(everyone.attributes(), initialOwner, name);
    } else {
        handle_ = createMutex(nullptr, initialOwner, name);
    }
    // Asking for ownership of a mutex that another process has created already is in vain.
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
    isHeld_ = false;  // while the mutex is still held: the next thread may have it at once
    if (ReleaseMutex(handle_.get()) == FALSE) {
        raiseLastError("Mutex::release() ReleaseMutex failed", place::kMutexRelease);
    }
}

}  // namespace jsw
