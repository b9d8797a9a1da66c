#pragma once

#include "PublicLib/settings/SettingReader.h"

/// The settings of the host that the printer is found by. What is missing has a fallback of its own
/// where it is read.
namespace jsw::setting {

inline constexpr Text kDriverName{"Settings\\", "DriverName", ""};
inline constexpr Text kPcsClient{"Settings\\", "PcsClient", ""};

}  // namespace jsw::setting
