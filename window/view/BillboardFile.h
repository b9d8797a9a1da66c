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
 * The page in the file with this name, with its texts as UTF-8; a page that says so when there is
 * none (empty name) or when it cannot be read. Where a file of the same name exists for the
 * language ("welcome.de.jbb" for "welcome.jbb"), that one is read. Reads at most kMaxFileSize bytes
 * and one more.
 */
[[nodiscard]] Page loadBillboard(const std::string& dataPath, const std::string& fileName,
                                 const Language& language);

/** Whether this .bmp file exists and its header announces an acceptable size. */
[[nodiscard]] bool isPictureFileAcceptable(const std::string& path);

}  // namespace jsw::view
