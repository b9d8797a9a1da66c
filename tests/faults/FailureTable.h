#pragma once

#include "tests/support/ImportGate.h"

#include <optional>
#include <string>

namespace jsw::test {

/// A function that jsw.dll may import: all exist in Windows 6.0, the oldest supported version.
/// Newer ones are looked up by name.
struct SystemFunction {
    std::string library;  ///< in lower case
    /// Nothing if it cannot fail, or is part of the program's end or of exception handling.
    std::optional<Failure> failure;
};

/// @throws std::invalid_argument for a function that is not in the table. Check its oldest Windows
/// version in the documentation before adding it.
const SystemFunction& systemFunction(const std::string& name);

}  // namespace jsw::test
