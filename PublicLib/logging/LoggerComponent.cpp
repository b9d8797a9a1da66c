#include "PublicLib/logging/LoggerComponent.h"

#include "PublicLib/logging/LogSwitches.h"

namespace jsw {

namespace component {
LoggerComponent kAll(setting::kLogAll.name, setting::kLogAll.defaultValue);
LoggerComponent kJsw(setting::kLogJsw.name, setting::kLogJsw.defaultValue);
LoggerComponent kRulesEngine(setting::kLogRulesEngine.name, setting::kLogRulesEngine.defaultValue);
LoggerComponent kCatalog(setting::kLogCatalog.name, setting::kLogCatalog.defaultValue);
LoggerComponent kUpdater(setting::kLogUpdater.name, setting::kLogUpdater.defaultValue);
}  // namespace component

}  // namespace jsw
