#pragma once

#include "jsw/jsw.h"

namespace jsw {

/// The driver's status callback of this process; null when it wants none. May be set and read on
/// different threads.
void setStatusCallback(JswStatusCallback callback);
JswStatusCallback statusCallback();

}  // namespace jsw
