#pragma once

#include "PublicLib/logging/LogSwitches.h"
#include "PublicLib/printer/PrinterSettings.h"

/// Every key and value of the registry store that the library reads or writes, except those of the
/// log and the printer, which are next to their readers. Keys are below the host's local store
/// unless stated otherwise.
namespace jsw::setting {

inline constexpr char kSettingsKey[] = "Settings\\";
inline constexpr char kControllerKey[] = "Settings\\Controller\\";
inline constexpr char kDefaultBillboardKey[] = "Settings\\Controller\\DefaultBillboard";
inline constexpr char kHistoryKey[] = "Settings\\Controller\\History";
inline constexpr char kHistoryIdsKey[] = "Settings\\Controller\\History\\Ids";
inline constexpr char kCatalogKey[] = "Settings\\Catalog\\";
inline constexpr char kUpdatedFilesKey[] = "Settings\\FileNamesOfUpdatedFiles";
inline constexpr char kGuiKey[] = "Settings\\Gui\\";  // one text per value that the view saves
inline constexpr char kUpdaterKey[] = "Settings\\Updater";

// Folders and identification. The readers have fallbacks for missing values.
inline constexpr Text kDataPath{kSettingsKey, "DataPath", ""};
inline constexpr Text kDllPath{kSettingsKey, "DllPath", "."};
inline constexpr Text kDefaultBillboard{kSettingsKey, "DefaultBillboard", "DEFAULT"};
inline constexpr Text kBillBoardVersionFile{kSettingsKey, "BillBoardVersionInfoFileName", ""};
inline constexpr Text kBaseUrl{kSettingsKey, "BaseUrl", ""};
inline constexpr Text kManufacturerName{kSettingsKey, "ManufacturerName", ""};
inline constexpr Text kPrinterCode{kSettingsKey, "PrinterCode", ""};
inline constexpr Number kDeleteStoreOnUninstall{kSettingsKey, "DeleteStoreOnUninstall", 0};

/// In the key above the local stores, after the local id: a number that exists during a first run,
/// and after one whose process was killed.
inline constexpr char kInstallationPending[] = "InstallationPending";

// The modules in use; the default is the local id plus this name. The updater writes the names of
// new ones to kUpdatedFilesKey under the same value names.
inline constexpr Text kCatalogModule{kControllerKey, "Catalog", "bcat.dll"};
inline constexpr Text kRulesEngineModule{kControllerKey, "RulesEngine", "reng.dll"};
inline constexpr Text kViewModule{kControllerKey, "View", "jswv.dll"};
inline constexpr Text kCatalogFilename{kCatalogKey, "CatalogFilename", ""};

// The default billboard that was last looked up.
inline constexpr Text kDefaultBillboardFile{kDefaultBillboardKey, "FileName", ""};
inline constexpr Number kDefaultBillboardNavigate{kDefaultBillboardKey, "Navigate", 0};
inline constexpr Number kDefaultBillboardRestore{kDefaultBillboardKey, "RestoreGui", 0};
inline constexpr Number kHistoryMaxSize{kHistoryKey, "MaxSize", 25};

// The update check. Missing values are written with their defaults.
inline constexpr Number kCheckForUpdates{kUpdaterKey, "CheckForUpdates", 1};
inline constexpr Number kUpdatesCheckFrequency{kUpdaterKey, "UpdatesCheckFrequency", 30};  // days
inline constexpr Text kDateLastChecked{kUpdaterKey, "DateLastCheckedForUpdates",
                                       ""};  // today's date
inline constexpr Text kUpdaterExecutable{kUpdaterKey, "BillBoardUpdaterExecutableName", ""};
inline constexpr Text kInitialPath{kUpdaterKey, "InitialPath", ""};
inline constexpr Number kDataUpdated{kUpdaterKey, "DataUpdated", 0};
inline constexpr Number kCompleteSoftwareUpdated{kUpdaterKey, "CompleteSoftwareUpdated", 0};
inline constexpr Text kDataUpdatesDirectory{kUpdaterKey, "DataUpdatesDirectoryName", "Job Status"};

// The job window's options, in the printer's store. They are read without writing defaults.
inline constexpr Number kShowProcessWindow{"GUI\\JSW\\", "Show Process Window", 1};
inline constexpr Number kJobProgressMinimized{"GUI\\JSW\\", "Job Progress Minimized", 0};
inline constexpr Number kShowSpecialMessages{"GUI\\JSW\\", "Show Special Messages", 1};
inline constexpr Number kCart1ReserveTankFlag{"GUI\\PSW\\", "Cart1ReserveTankFlag", 0};
inline constexpr Number kCart2ReserveTankFlag{"GUI\\PSW\\", "Cart2ReserveTankFlag", 0};
inline constexpr Number kCompleteToPrint{"GUI\\PSW\\", "CompleteToPrint", 0};

// Directly in the printer's store.
inline constexpr Text kRetailerId{"", "RetailerID", ""};
inline constexpr Text kSerialNumber{"", "SerialNumber", ""};

}  // namespace jsw::setting
