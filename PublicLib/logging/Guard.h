#pragma once

#include "PublicLib/logging/LoggerComponent.h"

namespace jsw {

/// Logs the exception that is being handled as "ERROR - <where>: <reason>". For catch (...) blocks.
void reportException(const LoggerComponent& component, const char* where) noexcept;

/// Runs work at an edge of the library: an export, a callback, a thread, a destructor. Catches and
/// logs every exception. Returns whether work completed.
template <class Work>
bool runGuarded(const LoggerComponent& component, const char* where, const Work& work) noexcept {
    try {
        work();
        return true;
    } catch (...) {
        reportException(component, where);
        return false;
    }
}

}  // namespace jsw
