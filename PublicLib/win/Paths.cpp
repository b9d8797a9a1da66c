#include "PublicLib/win/Paths.h"

namespace jsw {

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (path.empty() || path.back() != '\\') path += '\\';
    if (!name.empty() && name.front() == '\\') name.remove_prefix(1);
    return path.append(name);
}

std::string_view fileNamePart(std::string_view path) {
    const size_t separator = path.find_last_of('\\');
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view folderPart(std::string_view path) {
    const size_t separator = path.find_last_of('\\');
    return separator == std::string_view::npos ? std::string_view{} : path.substr(0, separator + 1);
}

}  // namespace jsw
