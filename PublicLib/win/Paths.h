#pragma once

#include <string>
#include <string_view>

namespace jsw {

/// Joins a folder and a name with exactly one backslash between them: one leading backslash of the
/// name is dropped, an empty folder gives "\name".
std::string joinPath(std::string_view folder, std::string_view name);

/// The text after the last backslash; the whole text if there is none.
std::string_view fileNamePart(std::string_view path);

/// The path up to and including the last backslash; empty if there is none.
std::string_view folderPart(std::string_view path);

}  // namespace jsw
