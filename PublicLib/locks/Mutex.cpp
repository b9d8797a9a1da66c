#include "PublicLib/locks/Mutex.h"

#include "PublicLib/errors/ErrorPlaces.h"

namespace jsw {

namespace {

/// Security attributes with access for everyone: a null access list.
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
