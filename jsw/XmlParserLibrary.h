#pragma once

#include "PublicLib/logging/MethodTrace.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw {

/// Major and minor part of the oldest XML parser library that is good enough: 8.30.
inline constexpr std::uint32_t kMinXmlParserVersion = 524318;

/// The parser's class, below HKEY_CLASSES_ROOT, and its file in the system folder.
inline constexpr char kXmlParserClass[] = "MSXML2.DomDocument.3.0";
inline constexpr char kXmlParserFile[] = "msxml3.dll";

/// Whether the XML parser that views and catalogs rely on is registered, and recent enough. What is
/// missing is said in the log.
bool isMsXmlValid();
bool IsSupportedMsXmlVersion();

/// Major and minor part of a library's file version, in its resources. What is missing is added to
/// the trace.
std::optional<std::uint32_t> parserLibraryVersion(const std::string& path, MethodTrace& trace);

/// Whether a library's file version, in its resources, is at least the one required. What is
/// missing or too old is added to the trace.
bool isSupportedParserLibrary(const std::string& path, MethodTrace& trace);

}  // namespace jsw
