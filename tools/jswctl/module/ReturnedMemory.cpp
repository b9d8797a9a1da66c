#include "tools/jswctl/module/ReturnedMemory.h"

#include <cstdlib>
#include <mutex>
#include <set>

namespace jsw::ctl::returned {

namespace {

std::mutex lock;
std::set<void*> known;

}  // namespace

void* allocate(std::int32_t size) {
    if (size < 0) return nullptr;
    void* const memory = std::malloc(static_cast<std::size_t>(size));
    const std::lock_guard hold(lock);
    if (memory != nullptr) known.insert(memory);
    return memory;
}

bool take(void* memory) {
    const std::lock_guard hold(lock);
    if (known.erase(memory) == 0) return false;
    std::free(memory);
    return true;
}

std::size_t left() {
    const std::lock_guard hold(lock);
    return known.size();
}

}  // namespace jsw::ctl::returned
