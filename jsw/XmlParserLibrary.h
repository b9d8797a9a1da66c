#pragma once

#include "PublicLib/logging/MethodTrace.h"

#include <cstdint>
#include <optional>
#include <string>

namespace jsw {

/// Major and minor version of the oldest supported XML parser library: 8.30.
inline constexpr std::uint32_t kMinXmlParserVersion = 524318;

/// The parser's class, below HKEY_CLASSES_ROOT, and its file in the system folder.
inline constexpr char kXmlParserClass[] = "MSXML2.DomDocument.3.0";
inline constexpr char kXmlParserFile[] = "msxml3.dll";

/// Whether the XML parser that views and catalogs need is registered and recent enough. If not, the
/// log says why.
bool isMsXmlValid();
bool IsSupportedMsXmlVersion();

/// Major and minor file version from a library's resources. If there is none, the trace says why.
std::optional<std::uint32_t> parserLibraryVersion(const std::string& path, MethodTrace& trace);

/// Whether a library's file version is at least the one required. If not, the trace says why.
bool isSupportedParserLibrary(const std::string& path, MethodTrace& trace);

}  // namespace jsw
