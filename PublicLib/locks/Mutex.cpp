#include "PublicLib/locks/Mutex.h"

#include "PublicLib/errors/Exception.h"

namespace jsw {

namespace {

/// Security attributes that let everyone in: an access list that is present but null.
class OpenToEveryone {
  public:
    OpenToEveryone() {
        if (InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) == FALSE) {
            throw Win32Exception("Mutex::Mutex() InitializeSecurityDescriptor failed",
                                 GetLastError(), "Mutex", 52);
        }
        if (SetSecurityDescriptorDacl(&descriptor_, TRUE, nullptr, FALSE) == FALSE) {
            throw Win32Exception("Mutex::Mutex() SetSecurityDescriptorDacl failed", GetLastError(),
                                 "Mutex", 57);
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
    if (!handle) {
        throw Win32Exception("Mutex::createMutex() CreateMutex failed", GetLastError(), "Mutex",
                             140);
    }
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
    if (initialOwner && GetLastError() != ERROR_ALREADY_EXISTS) timesHeld_ = 1;
}

Mutex::~Mutex() {
    for (; timesHeld_ > 0; --timesHeld_) ReleaseMutex(handle_.get());
}

bool Mutex::acquire(std::uint32_t timeoutMilliseconds) {
    switch (WaitForSingleObject(handle_.get(), timeoutMilliseconds)) {
        case WAIT_OBJECT_0:
        case WAIT_ABANDONED:
            ++timesHeld_;
            return true;
        case WAIT_TIMEOUT:
            return false;
        default:
            throw Win32Exception("Mutex::acquire() WaitForSingleObject failed", GetLastError(),
                                 "Mutex", 123);
    }
}

void Mutex::release() {
    // While the mutex is still held: the next thread may have it at once.
    if (timesHeld_ > 0) --timesHeld_;
    if (ReleaseMutex(handle_.get()) == FALSE) {
        throw Win32Exception("Mutex::release() ReleaseMutex failed", GetLastError(), "Mutex", 90);
    }
}

}  // namespace jsw
