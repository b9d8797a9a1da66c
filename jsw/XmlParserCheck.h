#pragma once

#include "PublicLib/logging/MethodTrace.h"

#include <cstdint>
#include <string>

namespace jsw {

/// Major and minor part of the oldest XML parser library that is good enough: 8.30.
inline constexpr std::uint32_t kMinXmlParserVersion = 524318;

/// Whether a library's file version, in its resources, is at least the one required. What is
/// missing or too old is added to the trace.
bool isSupportedParserLibrary(const std::string& path, MethodTrace& trace);

}  // namespace jsw
