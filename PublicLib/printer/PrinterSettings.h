#pragma once

#include "PublicLib/settings/SettingReader.h"

/// The host's settings with which its printer is found. Their readers have fallbacks for missing
/// values.
namespace jsw::setting {

inline constexpr Text kDriverName{"Settings\\", "DriverName", ""};
inline constexpr Text kPcsClient{"Settings\\", "PcsClient", ""};

}  // namespace jsw::setting
