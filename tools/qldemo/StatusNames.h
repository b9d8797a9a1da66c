#pragma once

#include <cstdint>
#include <string>

namespace jsw::qldemo {

/** "9 JSW_STATUS_JOB_CANCELLED (the user asked to cancel the job)". */
[[nodiscard]] std::string statusText(uint32_t status);

}  // namespace jsw::qldemo
