#pragma once

#include "tests/support/ImportGate.h"

#include <optional>
#include <string>

namespace jsw::test {

/// How an imported function fails; nothing for one that cannot fail, or that belongs to the
/// machinery by which the program itself ends or raises exceptions.
/// @throws std::invalid_argument for a function that the table does not know
std::optional<Failure> failureOf(const std::string& function);

}  // namespace jsw::test
