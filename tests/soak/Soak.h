#pragma once

#include "PublicLib/text/Text.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace jsw::test {

/// The amount of work: that of a whole soak, scaled by the environment variable JSW_SOAK_PERCENT,
/// at least 1.
inline int soakAmount(int whole) {
    const char* percent = std::getenv("JSW_SOAK_PERCENT");
    const int amount = percent != nullptr ? whole * std::atoi(percent) / 100 : whole;
    return amount > 0 ? amount : 1;
}

/// One line of the soak's report: figures and their expected values.
template <class... Parts>
void report(const Parts&... parts) {
    std::printf("%s\n", concat(parts...).c_str());
    std::fflush(stdout);
}

/// Seconds since its construction.
class Stopwatch {
  public:
    std::uint64_t seconds() const { return (GetTickCount64() - start_) / 1000; }

  private:
    std::uint64_t start_ = GetTickCount64();
};

}  // namespace jsw::test
