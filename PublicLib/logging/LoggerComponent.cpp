#include "PublicLib/logging/LoggerComponent.h"

#include <utility>

namespace jsw {

namespace {
constexpr std::uint32_t kAllLevels = 0xFFFFFFFF;
}

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
LoggerComponent kAll("All", kAllLevels);
LoggerComponent kJsw("JSW", kAllLevels);
LoggerComponent kRulesEngine("RulesEng", kAllLevels);
LoggerComponent kCatalog("Catalog", kAllLevels);
LoggerComponent kUpdater("Updater", kAllLevels);
}  // namespace component

}  // namespace jsw
