#include "PublicLib/logging/LoggerComponent.h"

#include "PublicLib/logging/LogSwitches.h"

#include <utility>

namespace jsw {

LoggerComponent::LoggerComponent(std::string name, std::uint32_t defaultMask)
    : name_(std::move(name)), defaultMask_(defaultMask) {
}

LoggerComponent::~LoggerComponent() = default;

std::string LoggerComponent::name() const {
    return name_;
}

void LoggerComponent::setMask(std::uint32_t mask) {
    defaultMask_ = mask;
}

std::uint32_t LoggerComponent::defaultMask() const {
    return defaultMask_;
}

namespace component {
LoggerComponent kAll(setting::kLogAll.name, setting::kLogAll.defaultValue);
LoggerComponent kJsw(setting::kLogJsw.name, setting::kLogJsw.defaultValue);
LoggerComponent kRulesEngine(setting::kLogRulesEngine.name, setting::kLogRulesEngine.defaultValue);
LoggerComponent kCatalog(setting::kLogCatalog.name, setting::kLogCatalog.defaultValue);
LoggerComponent kUpdater(setting::kLogUpdater.name, setting::kLogUpdater.defaultValue);
}  // namespace component

}  // namespace jsw
