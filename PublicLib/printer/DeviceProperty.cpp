#include "PublicLib/printer/DeviceProperty.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace jsw {

TextProperty readProperty(PcsClient& client, PcsGetString getString, PcsHandle handle,
                          const char* property) {
    std::array<char, 1024> buffer{};
    std::uint32_t length = 0;
    const PcsStatus status = (client.*getString)(
        handle, property, buffer.data(), static_cast<std::uint32_t>(buffer.size()), &length);
    if (status != ERROR_SUCCESS) return {status};
    const auto end = std::find(buffer.begin(), buffer.end(), '\0');
    return {status, std::string(buffer.begin(), end)};
}

}  // namespace jsw
