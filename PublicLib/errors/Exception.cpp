#include "PublicLib/errors/Exception.h"

#include "PublicLib/text/Text.h"

#include <windows.h>

#include <array>

namespace jsw {

namespace {

constexpr DWORD kUsEnglish = 1033;
constexpr DWORD kMaxMessageLength = 256;

std::string systemMessage(DWORD code) {
    std::array<char, kMaxMessageLength + 1> buffer{};
    const DWORD length =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                       kUsEnglish, buffer.data(), kMaxMessageLength, nullptr);
    if (length == 0) return concat("Error getting message:", GetLastError());
    std::string text(buffer.data(), length);
    std::erase_if(text, [](char letter) { return letter == '\r' || letter == '\n'; });
    return text;
}

}  // namespace

std::string Exception::description() const {
    return {};
}

std::string Exception::text() const {
    std::string result;
    if (*place_.source != '\0') result = concat("file:", place_.source, ":", place_.line, ": ");
    result += message_;
    const std::string meaning = description();
    if (!meaning.empty()) result += concat(": ", meaning);
    return result;
}

std::string Win32Exception::description() const {
    if (code() == 0) return {};
    return concat("Win32(", code(), systemMessage(static_cast<DWORD>(code())));
}

void raiseLastError(const char* message, ErrorPlace place) {
    const DWORD error = GetLastError();
    throw Win32Exception(message, error, place);
}

}  // namespace jsw
