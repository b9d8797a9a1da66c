#pragma once

#include <string>
#include <string_view>

namespace jsw {

/// Whether a name is a plain file name. Names from the registry are joined with a folder: an empty
/// name would name the folder itself, a name with a path would leave it.
bool isPlainFileName(std::string_view name);

bool isFolder(const std::string& path);

/// Whether the folder contains a file, not a folder, of this plain name.
bool isFileIn(const std::string& folder, const std::string& name);

}  // namespace jsw
