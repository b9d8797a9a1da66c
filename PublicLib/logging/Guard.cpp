#include "PublicLib/logging/Guard.h"

#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/BasicLogger.h"

#include <exception>
#include <string>

namespace jsw {

namespace {

/// The text of the exception being handled.
std::string reason() {
    try {
        throw;
    } catch (const Exception& error) {
        return error.text();
    } catch (const std::exception& error) {
        return error.what();
    } catch (...) {
        return "unknown exception";
    }
}

}  // namespace

void reportException(const LoggerComponent& component, const char* where) noexcept {
    try {
        logLine(component, kLogError, "ERROR - ", where, ": ", reason());
    } catch (...) {  // NOLINT(bugprone-empty-catch): no memory to log it
    }
}

}  // namespace jsw
