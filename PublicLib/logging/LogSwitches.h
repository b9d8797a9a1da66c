#pragma once

#include "PublicLib/settings/SettingReader.h"

/// The log's switches: masks of levels for the components, and the parts of a line's header.
/// Reading them writes no defaults.
namespace jsw::setting {

inline constexpr char kLoggerKey[] = "Logger";

inline constexpr Number kStartLog{kLoggerKey, "startLog", 0};
inline constexpr Number kLogAll{kLoggerKey, "All", 0xFFFFFFFF};
inline constexpr Number kLogJsw{kLoggerKey, "JSW", 0xFFFFFFFF};
inline constexpr Number kLogRulesEngine{kLoggerKey, "RulesEng", 0xFFFFFFFF};
inline constexpr Number kLogCatalog{kLoggerKey, "Catalog", 0xFFFFFFFF};
inline constexpr Number kLogUpdater{kLoggerKey, "Updater", 0xFFFFFFFF};
inline constexpr Number kLogClockTime{kLoggerKey, "Clocktime_In_Header", 1};
inline constexpr Number kLogProcessId{kLoggerKey, "Proc_Id_In_Header", 0};
inline constexpr Number kLogThreadId{kLoggerKey, "Thread_Id_In_Header", 0};

}  // namespace jsw::setting
