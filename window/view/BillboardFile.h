/**
 * @file BillboardFile.h
 * Reads billboard files from the data path's "Scripts" folder.
 */
#pragma once

#include "window/view/BillboardContent.h"
#include "window/view/Cartridges.h"
#include "window/view/WindowTexts.h"

#include <string>
#include <vector>

namespace jsw::window {

/** Full path of a file in the "Scripts" folder of the data path. */
[[nodiscard]] std::string scriptPath(const std::string& dataPath, const std::string& fileName);

/**
 * The page in the file with this name, with its texts as UTF-8; a page that says so when there is
 * none (empty name) or when it cannot be read. Where a file of the same name exists for one of the
 * languages ("welcome.de.jbb" for "welcome.jbb"), the first of those is read. Reads at most
 * kMaxFileSize bytes and one more.
 */
[[nodiscard]] Page loadBillboard(const std::string& dataPath, const std::string& fileName,
                                 const std::vector<std::string>& languages,
                                 const WindowTexts& texts);

/** The names of cartridges in the same folder, in the first of these languages that has a file. */
[[nodiscard]] Cartridges loadCartridges(const std::string& dataPath,
                                        const std::vector<std::string>& languages);

/** Whether this .bmp or .png file exists and its header has an acceptable size. */
[[nodiscard]] bool isPictureFileAcceptable(const std::string& path);

}  // namespace jsw::window
