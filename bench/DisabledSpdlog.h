#pragma once

#include <string>

namespace jsw::bench {

/// A call of spdlog, a logging library known for its speed, at a level that is switched off.
void disabledCallOfSpdlog(const std::string& text);

}  // namespace jsw::bench
