#pragma once

#include <cstddef>
#include <cstdint>

/// The memory that a tested module allocates for what it returns, and checks of its use. One per
/// process, because a module gets a plain function.
namespace jsw::ctl::returned {

/// The allocation function for the module.
void* allocate(std::int32_t size);

/// Frees what the module has returned. False, doing nothing, if it is not from allocate() or was
/// already taken.
bool take(void* memory);

/// The number of allocations that were never returned.
std::size_t left();

}  // namespace jsw::ctl::returned
