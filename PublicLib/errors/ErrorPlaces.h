#pragma once

#include "PublicLib/errors/Exception.h"

/// The sources and lines in the library's errors. They are constants of the interface that tell
/// errors apart in logs, not places in this code. See "Fixed interfaces" in docs/architecture.md.
namespace jsw::place {

inline constexpr ErrorPlace kModuleLoad{"../PublicLib\\BasicDll", 332};
inline constexpr ErrorPlace kNoLogger{"BasicLogger", 58};
inline constexpr ErrorPlace kCriticalLogName{"CriticalLog", 41};
inline constexpr ErrorPlace kCurrentProcess{"CurrentProcess", 22};
inline constexpr ErrorPlace kLockWithoutName{"InterProcessLock", 16};
inline constexpr ErrorPlace kNoLocalize{"Localize", 47};
inline constexpr ErrorPlace kModulePath{"Localize", 63};
inline constexpr ErrorPlace kLocalId{"Localize", 69};
inline constexpr ErrorPlace kMutexDescriptor{"Mutex", 52};
inline constexpr ErrorPlace kMutexAccessList{"Mutex", 57};
inline constexpr ErrorPlace kMutexRelease{"Mutex", 90};
inline constexpr ErrorPlace kMutexAcquire{"Mutex", 123};
inline constexpr ErrorPlace kMutexCreate{"Mutex", 140};
inline constexpr ErrorPlace kOsVersion{"OsVersion", 29};
inline constexpr ErrorPlace kExtendedOsVersion{"OsVersion", 38};
inline constexpr ErrorPlace kPrinterInitialize{"Printer", 61};
inline constexpr ErrorPlace kNullCacheMemory{"RealPrinter", 404};
inline constexpr ErrorPlace kKeyOpen{"RegistryKey", 61};
inline constexpr ErrorPlace kKeyCreate{"RegistryKey", 73};
inline constexpr ErrorPlace kKeyOpenCreated{"RegistryKey", 79};
inline constexpr ErrorPlace kKeyCreateComponent{"RegistryKey", 88};
inline constexpr ErrorPlace kGetNumber{"RegistryKey", 103};
inline constexpr ErrorPlace kGetText{"RegistryKey", 121};
inline constexpr ErrorPlace kGetLongText{"RegistryKey", 129};
inline constexpr ErrorPlace kGetBytes{"RegistryKey", 150};
inline constexpr ErrorPlace kSetValue{"RegistryKey", 163};
inline constexpr ErrorPlace kDeleteValue{"RegistryKey", 182};
inline constexpr ErrorPlace kListNames{"RegistryKey", 196};
inline constexpr ErrorPlace kDeleteKeyOpen{"RegistryKey", 226};
inline constexpr ErrorPlace kDeleteKey{"RegistryKey", 239};
inline constexpr ErrorPlace kApplyToObject{"Security", 40};
inline constexpr ErrorPlace kApplyReadList{"Security", 51};
inline constexpr ErrorPlace kApplyToOthers{"Security", 58};
inline constexpr ErrorPlace kEveryoneDescriptor{"SecurityEveryone", 21};
inline constexpr ErrorPlace kEveryoneCheck{"SecurityEveryone", 28};
inline constexpr ErrorPlace kEveryoneId{"SecurityEveryone", 44};
inline constexpr ErrorPlace kThreadLaunch{"Thread", 253};

}  // namespace jsw::place
