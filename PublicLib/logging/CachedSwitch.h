#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

namespace jsw {

/// How long a switch read from the registry stays valid, in milliseconds.
inline constexpr std::uint32_t kSwitchLifetimeMs = 5000;

/// One switch and the time of its reading, in one atomic word, so that no lock is needed.
class CachedSwitch {
  public:
    /// The value, if it was read before this tick, but less than five seconds before.
    std::optional<std::uint32_t> value(std::uint32_t tick) const {
        const std::uint64_t entry = entry_.load(std::memory_order_relaxed);
        const std::uint32_t age = tick - static_cast<std::uint32_t>(entry >> 32);
        if (entry == kEmpty || age == 0 || age >= kSwitchLifetimeMs) return std::nullopt;
        return static_cast<std::uint32_t>(entry);
    }

    void store(std::uint32_t value, std::uint32_t tick) {
        entry_.store((static_cast<std::uint64_t>(tick) << 32) | value, std::memory_order_relaxed);
    }

    void clear() { entry_.store(kEmpty, std::memory_order_relaxed); }

  private:
    static constexpr std::uint64_t kEmpty = ~std::uint64_t{0};  // at worst it is read again

    std::atomic<std::uint64_t> entry_{kEmpty};
};

}  // namespace jsw
