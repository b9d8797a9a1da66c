#pragma once

#include <string>

namespace jsw::qldemo {

/** The settings that the library keeps in the registry for qldemo.exe. */
[[nodiscard]] bool storeExists();

/** Where the library writes its log. */
[[nodiscard]] std::string logFilePath();

/**
 * Switches the library's log on, all levels of all parts. It stays on for later runs.
 *
 * @throws std::runtime_error when the registry refuses, as the next two do
 */
void switchLogOn();

/** Makes the library reach printers through this device client from now on. */
void setDeviceClient(const std::string& path);

/** Back to no device client. */
void removeDeviceClient();

}  // namespace jsw::qldemo
