#include "PublicLib/logging/MethodTrace.h"

namespace jsw {

MethodTrace::MethodTrace(Logger* logger, const LoggerComponent& component, std::string tag,
                         std::uint32_t level, bool announce) noexcept {
    if (!announce || logger == nullptr) return;
    withoutRaising([&] {
        if (!logger->isEnabled(component, level)) return;
        const std::shared_ptr<void> notOwned;
        start({notOwned, logger}, component, std::move(tag), level);
    });
}

void MethodTrace::start(std::shared_ptr<Logger> logger, const LoggerComponent& component,
                        std::string tag, std::uint32_t level) {
    if (!logger) return;  // the log has just ended
    logger->log(component, level, "+" + tag);
    logger->increaseDepth();
    open_.emplace(Open{std::move(logger), component, std::move(tag), level});
}

void MethodTrace::end() noexcept {
    withoutRaising([this] {
        open_->logger->decreaseDepth();
        std::string line = "-" + open_->tag;
        if (!open_->result.empty()) line += " rc=" + open_->result;
        open_->logger->log(open_->component, open_->level, line);
    });
}

void MethodTrace::setResult(std::int32_t value) noexcept {
    if (open_) open_->result = std::to_string(value);  // short enough to need no allocation
}

void MethodTrace::setResult(std::string_view value) noexcept {
    if (open_) withoutRaising([&] { open_->result = value; });
}

}  // namespace jsw
