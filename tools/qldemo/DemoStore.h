#pragma once

#include <string>

namespace jsw::qldemo {

/** The settings that the library keeps in the registry for qldemo.exe. */
[[nodiscard]] bool storeExists();

/** The path of the library's log. */
[[nodiscard]] std::string logFilePath();

/**
 * Switches the library's log on, all levels of all components. It stays on for later runs.
 *
 * @throws std::runtime_error if the registry refuses, like the next two
 */
void switchLogOn();

/** Makes the library use this device client. */
void setDeviceClient(const std::string& path);

/** Removes the device client's setting. */
void removeDeviceClient();

}  // namespace jsw::qldemo
