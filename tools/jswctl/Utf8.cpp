#include "tools/jswctl/Utf8.h"

#include <windows.h>

#include <algorithm>

namespace jsw::ctl {

namespace {

/// Log lines and pages are shorter; longer texts are converted piece by piece.
constexpr std::size_t kMaxPiece = std::size_t{1024} * 1024;

/// The piece's size: up to the last end of a line, so that no character is cut in two.
std::size_t pieceSize(std::string_view text) {
    if (text.size() <= kMaxPiece) return text.size();
    const std::size_t end = text.rfind('\n', kMaxPiece - 1);
    return end == std::string_view::npos ? kMaxPiece : end + 1;
}

void append(std::string& result, std::string_view piece) {
    const auto size = static_cast<int>(piece.size());
    std::wstring wide(piece.size(), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, piece.data(), size, wide.data(), size);
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    const std::size_t before = result.size();
    result.resize(before + static_cast<std::size_t>(std::max(needed, 0)));
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, result.data() + before, needed, nullptr,
                        nullptr);
}

}  // namespace

std::string toUtf8(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t size = pieceSize(text);
        append(result, text.substr(0, size));
        text.remove_prefix(size);
    }
    return result;
}

}  // namespace jsw::ctl
