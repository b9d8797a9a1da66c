#pragma once

#include "tests/support/ImportGate.h"

#include <optional>
#include <string>

namespace jsw::test {

/// A function that jsw.dll may import: all of them are in Windows 6.0, the oldest that is served.
/// What is newer is looked up by name.
struct SystemFunction {
    std::string library;  ///< in lower case
    /// Nothing for one that cannot fail, or that belongs to the machinery by which the program
    /// itself ends or raises exceptions.
    std::optional<Failure> failure;
};

/// @throws std::invalid_argument for a function that the table does not know. Look the oldest
/// version up in its documentation before adding it.
const SystemFunction& systemFunction(const std::string& name);

}  // namespace jsw::test
