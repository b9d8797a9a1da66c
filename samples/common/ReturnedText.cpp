#include "samples/common/ReturnedText.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace jsw::sample {
namespace {

void* allocateBytes(JswAllocate allocate, size_t size) {
    if (allocate == nullptr || size > static_cast<size_t>(std::numeric_limits<int32_t>::max())) {
        return nullptr;
    }
    return allocate(static_cast<int32_t>(size));
}

}  // namespace

char* returnedText(JswAllocate allocate, const std::string& text) {
    if (text.empty()) return nullptr;
    char* copy = static_cast<char*>(allocateBytes(allocate, text.size() + 1));
    if (copy != nullptr) std::copy_n(text.c_str(), text.size() + 1, copy);
    return copy;
}

char** returnedList(JswAllocate allocate, const std::vector<std::string>& texts) {
    if (texts.empty() || texts.front().empty()) return nullptr;
    char** list = static_cast<char**>(allocateBytes(allocate, (texts.size() + 1) * sizeof(char*)));
    if (list == nullptr) return nullptr;
    char** next = list;
    for (const std::string& text : texts) {
        *next = returnedText(allocate, text);
        if (*next == nullptr) return list;
        ++next;
    }
    *next = nullptr;
    return list;
}

}  // namespace jsw::sample
