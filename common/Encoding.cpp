#include "common/Encoding.h"

#include <windows.h>

namespace jsw::common {
namespace {

std::wstring decoded(std::string_view bytes, UINT codePage) {
    const int size = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(needed), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, text.data(), needed);
    return text;
}

std::string encoded(std::wstring_view text, UINT codePage) {
    const int size = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(codePage, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(codePage, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

}  // namespace

std::wstring wide(std::string_view utf8) {
    return decoded(utf8, CP_UTF8);
}

std::string utf8(std::wstring_view text) {
    return encoded(text, CP_UTF8);
}

std::wstring wideFromAnsi(std::string_view ansi) {
    return decoded(ansi, CP_ACP);
}

std::string ansi(std::wstring_view text) {
    return encoded(text, CP_ACP);
}

std::string utf8FromAnsi(std::string_view ansi) {
    return utf8(wideFromAnsi(ansi));
}

bool isUtf8(std::string_view bytes) {
    return bytes.empty() || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(),
                                                static_cast<int>(bytes.size()), nullptr, 0) > 0;
}

}  // namespace jsw::common
