#include "common/Files.h"

#include <cstdio>
#include <memory>
#include <utility>

namespace jsw::common {
namespace {

/** What ask(buffer, size) writes: its length, or the size when there was too little room. */
template <typename Ask>
std::string growing(Ask&& ask) {
    std::string text(MAX_PATH, '\0');
    while (true) {
        const auto size = static_cast<DWORD>(text.size());
        const DWORD length = ask(text.data(), size);
        text.resize(length < size ? length : std::size_t{2} * size);
        if (length < size) return text;
    }
}

}  // namespace

HMODULE thisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExA(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        reinterpret_cast<const char*>(&thisModule), &module);
    return module;
}

std::string moduleFileName(HMODULE module) {
    return growing(
        [module](char* text, DWORD size) { return GetModuleFileNameA(module, text, size); });
}

std::string moduleFolder(HMODULE module) {
    const std::string name = moduleFileName(module);
    return name.substr(0, name.find_last_of('\\') + 1);
}

std::string fullPath(const std::string& path) {
    std::string full = growing([&path](char* text, DWORD size) {
        return GetFullPathNameA(path.c_str(), size, text, nullptr);
    });
    return full.empty() ? path : full;
}

std::optional<std::string> readStart(const std::string& path, std::size_t most) {
    // Not a stream of the C++ library: it would take an index of thread-local storage for good.
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"),
                                                               std::fclose);
    if (!file) return std::nullopt;
    std::string bytes(most, '\0');
    bytes.resize(std::fread(bytes.data(), 1, bytes.size(), file.get()));
    return std::ferror(file.get()) ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace jsw::common
