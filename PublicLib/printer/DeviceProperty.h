#pragma once

#include "PublicLib/printer/PcsClient.h"

#include <string>

namespace jsw {

/// A text property of a device, and the client's status when it did not give it.
struct TextProperty {
    PcsStatus status;
    std::string text{};
};

/// The client's function that gives the text properties of one kind of device.
using PcsGetString = PcsStatus (PcsClient::*)(JSW_PCS_PARAMS_STRING);

/// Asks the client for a text property of a device.
/// @param getString  the client's function for that kind of device
/// @param property   what is asked for, such as JSW_DEVICE_PORT_PROPERTY
TextProperty readProperty(PcsClient& client, PcsGetString getString, PcsHandle handle,
                          const char* property);

}  // namespace jsw
