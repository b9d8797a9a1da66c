#include "PublicLib/locks/InterProcessLock.h"

#include "PublicLib/errors/ErrorPlaces.h"

#include <exception>

namespace jsw {

InterProcessLock::InterProcessLock(const std::string& name)
    : isNamed_(!name.empty()), mutex_(false, name, true) {
}

void InterProcessLock::lock() {
    if (!isNamed_) throw Win32Exception("InterProcessLock has no name", 0, place::kLockWithoutName);
    mutex_.acquire(INFINITE);
}

InterProcessLock::Hold::~Hold() {
    try {
        lock_.unlock();
    } catch (const std::exception& error) {
        OutputDebugStringA(error.what());
    }
}

}  // namespace jsw
