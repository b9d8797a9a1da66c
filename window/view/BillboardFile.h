/**
 * @file BillboardFile.h
 * Reads billboard files from the data path's "Scripts" folder.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/Strings.h"

#include <string>

namespace jsw::view {

/** Full path of a file in the "Scripts" folder of the data path. */
[[nodiscard]] std::string scriptPath(const std::string& dataPath, const std::string& fileName);

/**
 * The page in the file with this name, in UTF-8. Without a name, or if the file cannot be read, a
 * page that says so. Reads the file for the language if it exists ("welcome.de.jbb" for
 * "welcome.jbb"). Reads at most kMaxFileSize + 1 bytes.
 */
[[nodiscard]] Page loadBillboard(const std::string& dataPath, const std::string& fileName,
                                 const Language& language);

/** Whether this .bmp file exists and its header has an acceptable size. */
[[nodiscard]] bool isPictureFileAcceptable(const std::string& path);

}  // namespace jsw::view
