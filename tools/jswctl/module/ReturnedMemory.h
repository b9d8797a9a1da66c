#pragma once

#include <cstddef>
#include <cstdint>

/// The memory that a tried module gets for what it returns, and whether it deals with it as it
/// must. One for the process, because a module is handed a plain function.
namespace jsw::ctl::returned {

/// What the module is given to allocate with.
void* allocate(std::int32_t size);

/// Frees what the module has returned. False, with nothing done, for what is not from allocate(),
/// or was taken before.
bool take(void* memory);

/// How many allocations were never returned.
std::size_t left();

}  // namespace jsw::ctl::returned
