#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace jsw {

/// A failure inside the library. Travels up to the nearest thread, callback or export boundary,
/// which logs text() and carries on with an empty answer.
class Exception : public std::exception {
  public:
    /// @param code    number of the error, 0 when there is none
    /// @param source  name of the source file without folder and extension; may be empty
    Exception(std::string message, std::int32_t code, std::string source, std::uint32_t line);

    const std::string& message() const noexcept { return message_; }
    std::int32_t code() const noexcept { return code_; }

    /// What the code means; empty when it means nothing.
    virtual std::string description() const;

    /// "file:<source>:<line>: <message>: <description>", without the parts that are empty.
    std::string text() const;

    const char* what() const noexcept override { return message_.c_str(); }

  private:
    std::string message_;
    std::int32_t code_;
    std::string source_;
    std::uint32_t line_;
};

/// A failed call into Windows; the code is a Win32 error number.
class Win32Exception : public Exception {
  public:
    Win32Exception(std::string message, std::uint32_t code, std::string source, std::uint32_t line)
        : Exception(std::move(message), static_cast<std::int32_t>(code), std::move(source), line) {}

    /// "Win32(" + the code + the system's English text for it; empty for code 0.
    std::string description() const override;
};

}  // namespace jsw
