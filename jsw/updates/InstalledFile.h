#pragma once

#include <string>
#include <string_view>

namespace jsw {

/// Whether a name is that of a file and nothing more. Names in the registry are joined with a
/// folder; an empty one would name the folder itself, one with path parts would lead out of it.
bool isPlainFileName(std::string_view name);

bool isFolder(const std::string& path);

/// Whether the folder holds a file, not a folder, of this plain name.
bool isFileIn(const std::string& folder, const std::string& name);

}  // namespace jsw
