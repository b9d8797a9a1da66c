#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace jsw {

/// The source and line in an error's text: see ErrorPlaces.h.
struct ErrorPlace {
    const char* source = "";  ///< name of a source file without folder and extension
    std::uint32_t line = 0;
};

/// A failure inside the library. The nearest thread, callback or export boundary catches it, logs
/// text() and continues with an empty answer.
class Exception : public std::exception {
  public:
    /// @param code  number of the error, or 0
    Exception(std::string message, std::int32_t code, ErrorPlace place = {})
        : message_(std::move(message)), code_(code), place_(place) {}

    const std::string& message() const noexcept { return message_; }
    std::int32_t code() const noexcept { return code_; }

    /// The meaning of the code; empty if it has none.
    virtual std::string description() const;

    /// "file:<source>:<line>: <message>: <description>", without empty parts.
    std::string text() const;

    const char* what() const noexcept override { return message_.c_str(); }

  private:
    std::string message_;
    std::int32_t code_;
    ErrorPlace place_;
};

/// A failed call into Windows; the code is a Win32 error number.
class Win32Exception : public Exception {
  public:
    Win32Exception(std::string message, std::uint32_t code, ErrorPlace place = {})
        : Exception(std::move(message), static_cast<std::int32_t>(code), place) {}

    /// "Win32(" + the code + the system's English text for it; empty for code 0.
    std::string description() const override;
};

/// Throws Win32Exception with the thread's last error.
[[noreturn]] void raiseLastError(const char* message, ErrorPlace place);

}  // namespace jsw
