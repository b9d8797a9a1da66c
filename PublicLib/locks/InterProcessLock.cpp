#include "PublicLib/locks/InterProcessLock.h"

#include "PublicLib/errors/ErrorPlaces.h"

#include <exception>
#include <utility>

namespace jsw {

InterProcessLock::InterProcessLock(std::string name)
    : name_(std::move(name)), mutex_(false, name_, true) {
}

void InterProcessLock::lock() {
    if (name_.empty()) {
        throw Win32Exception("InterProcessLock has no name", 0, place::kLockWithoutName);
    }
    mutex_.acquire(INFINITE);
}

void InterProcessLock::unlock() {
    mutex_.release();
}

InterProcessLock::Hold::~Hold() {
    try {
        lock_.unlock();
    } catch (const std::exception& error) {
        OutputDebugStringA(error.what());
    }
}

}  // namespace jsw
