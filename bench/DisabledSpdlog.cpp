#include "bench/DisabledSpdlog.h"

#include <memory>
#include <spdlog/logger.h>
#include <spdlog/sinks/null_sink.h>

namespace jsw::bench {

void disabledCallOfSpdlog(const std::string& text) {
    static spdlog::logger logger("bench", std::make_shared<spdlog::sinks::null_sink_mt>());
    logger.trace("text={}", text);  // it logs from "info" on
}

}  // namespace jsw::bench
