// Where MinGW's C++ run-time library puts the exceptions of this library.

#ifdef __GNUC__

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <unwind.h>

namespace {

/// What the run-time library keeps in front of a thrown object, as the C++ ABI lays it down; it
/// wants it to be zero.
struct Header {
    alignas(_Unwind_Exception) int users;
    alignas(_Unwind_Exception) std::array<void*, 10> notes;
    _Unwind_Exception unwind;
};
static_assert(sizeof(Header) == 160);

/// Room for an exception when there is no memory. The run-time library has some, too, but guards it
/// by a lock that itself needs memory when it is first used, and its reserve would stay behind
/// whenever the library is freed.
class Reserve {
  public:
    void* take(std::size_t size) {
        if (size > kSlotSize) return nullptr;
        for (Slot& slot : slots_) {
            if (!slot.taken.test_and_set(std::memory_order_acquire)) return slot.bytes.data();
        }
        return nullptr;
    }

    /// False when the memory is not of the reserve.
    bool giveBack(const void* memory) {
        for (Slot& slot : slots_) {
            if (slot.bytes.data() != memory) continue;
            slot.taken.clear(std::memory_order_release);
            return true;
        }
        return false;
    }

  private:
    static constexpr std::size_t kSlotSize = 512;
    /// As many exceptions as threads may be raising at a time, some inside others.
    static constexpr std::size_t kSlots = 64;

    struct Slot {
        alignas(Header) std::array<std::byte, kSlotSize> bytes;
        std::atomic_flag taken;
    };

    std::array<Slot, kSlots> slots_{};
};

constinit Reserve reserve;

}  // namespace

namespace __cxxabiv1 {

// The run-time library's own functions: linked in place of those in its archive.
extern "C" void* __cxa_allocate_exception(std::size_t thrownSize) noexcept {
    const std::size_t size = sizeof(Header) + thrownSize;
    void* memory = std::malloc(size);
    if (memory == nullptr) memory = reserve.take(size);
    if (memory == nullptr) std::terminate();  // what throws cannot be told
    std::memset(memory, 0, sizeof(Header));
    return static_cast<std::byte*>(memory) + sizeof(Header);
}

extern "C" void __cxa_free_exception(void* thrown) noexcept {
    void* memory = static_cast<std::byte*>(thrown) - sizeof(Header);
    if (!reserve.giveBack(memory)) std::free(memory);
}

}  // namespace __cxxabiv1

#endif
