#pragma once

#include "jsw/settings/SettingNames.h"

/// Lists of all named settings of a store.
namespace jsw::setting {

// In the host's local store.
inline constexpr const Text* kHostTexts[] = {
    &kDataPath,
    &kDllPath,
    &kDefaultBillboard,
    &kDriverName,
    &kBaseUrl,
    &kManufacturerName,
    &kPrinterCode,
    &kPcsClient,
    &kCatalogModule,
    &kRulesEngineModule,
    &kViewModule,
    &kCatalogFilename,
    &kUpdaterExecutable,
    &kDateLastChecked,
    &kInitialPath,
    &kDataUpdatesDirectory,
    &kBillBoardVersionFile,
    &kDefaultBillboardFile,
};
inline constexpr const Number* kHostNumbers[] = {
    &kDeleteStoreOnUninstall,
    &kDefaultBillboardNavigate,
    &kDefaultBillboardRestore,
    &kHistoryMaxSize,
    &kCheckForUpdates,
    &kUpdatesCheckFrequency,
    &kDataUpdated,
    &kCompleteSoftwareUpdated,
    &kStartLog,
    &kLogAll,
    &kLogJsw,
    &kLogRulesEngine,
    &kLogCatalog,
    &kLogUpdater,
    &kLogClockTime,
    &kLogProcessId,
    &kLogThreadId,
};

// In a printer's store.
inline constexpr const Number* kPrinterNumbers[] = {
    &kShowProcessWindow,    &kJobProgressMinimized, &kShowSpecialMessages,
    &kCart1ReserveTankFlag, &kCart2ReserveTankFlag, &kCompleteToPrint,
};
inline constexpr const Text* kPrinterTexts[] = {&kRetailerId, &kSerialNumber};

}  // namespace jsw::setting
