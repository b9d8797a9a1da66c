#include "PublicLib/logging/MethodTrace.h"

namespace jsw {

MethodTrace::MethodTrace(Logger* logger, const LoggerComponent& component, std::string tag,
                         std::uint32_t level, bool announce)
    : component_(&component), level_(level) {
    if (announce && logger != nullptr && logger->isEnabled(component, level)) {
        const std::shared_ptr<void> notOwned;
        start({notOwned, logger}, std::move(tag));
    }
}

MethodTrace::MethodTrace() : component_(&component::kJsw), level_(kLogTrace) {
}

void MethodTrace::start(std::shared_ptr<Logger> logger, std::string tag) {
    if (!logger) return;  // the log ended just now
    tag_ = std::move(tag);
    logger->log(*component_, level_, "+" + tag_);
    logger->increaseDepth();
    logger_ = std::move(logger);
}

MethodTrace::~MethodTrace() {
    if (!isActive()) return;
    withoutRaising([this] {
        logger_->decreaseDepth();
        std::string line = "-" + tag_;
        if (!result_.empty()) line += " rc=" + result_;
        logger_->log(*component_, level_, line);
    });
}

void MethodTrace::setResult(std::int32_t value) noexcept {
    if (isActive()) result_ = std::to_string(value);  // so short that it takes no memory
}

void MethodTrace::setResult(const std::string& value) noexcept {
    if (isActive()) withoutRaising([&] { result_ = value; });
}

}  // namespace jsw
