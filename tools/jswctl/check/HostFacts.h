#pragma once

#include "tools/jswctl/check/StoreImage.h"
#include "tools/jswctl/module/ModuleFacts.h"
#include "tools/jswctl/store/SettingsFile.h"

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace jsw::ctl {

/// The store, and the file that the first run installs in it.
struct FirstRunFacts {
    bool storeOpens = false;
    bool isPending = false;        ///< the first run is in progress or was interrupted
    std::uint32_t storeError = 0;  ///< if it does not open: ERROR_FILE_NOT_FOUND or another error
    std::vector<std::string> closedKeys;  ///< of the store, to jobs of ordinary users
    SettingsFile file;
};

/// A required file or folder.
struct Presence {
    std::string path;
    bool exists = false;
    bool isFolder = false;
};

/// A billboard's page, from the catalog.
struct PageFacts {
    std::string id;
    bool wasAsked = false;  ///< false: there was no catalog
    std::string fileName;   ///< the catalog's answer; empty: none
    Presence file;
};

/// A stored value whose name the library does not know.
struct UnknownValue {
    std::string key;
    std::string name;
};

/// What a job of one host would find.
struct HostFacts {
    std::string hostPath;
    std::string localId;
    std::string productLine;  ///< its registry key; empty for a host of no known line
    std::string productRoot;  ///< below HKEY_LOCAL_MACHINE
    std::string storePath;    ///< below HKEY_LOCAL_MACHINE, without a trailing backslash
    std::string currentFolder;
    std::string driverFolder;
    std::string initialPath;  ///< what a job writes for a missing data or module folder

    ModuleFacts library;  ///< jsw.dll, where Windows would find it for the host
    std::string libraryVersion;
    std::string toolVersion;

    FirstRunFacts firstRun;
    StoreImage image;
    std::vector<UnknownValue> unknownValues;

    bool parserRegistered = false;
    std::uint32_t parserVersion = 0;  ///< major and minor half of its file; 0: no such file

    Presence log;
    std::uint64_t logSize = 0;   ///< in bytes
    std::uint32_t logError = 0;  ///< why a line could not be written; 0: it could

    std::time_t now = 0;
    std::tm localNow{};
    Presence updater;
    std::uint32_t historySize = 0;

    Presence dataFolder;
    std::vector<ModuleFacts> modules;
    PageFacts cachedDefault;       ///< the stored page of the last look-up; an empty name: none
    std::vector<PageFacts> pages;  ///< the default billboard's and the ink status one's
};

/// Where a job would look according to the settings.
struct HostPaths {
    std::string dataPath;  ///< without a trailing backslash
    std::string dllPath;
    std::string view;
    std::string catalog;
    std::string rules;
    std::string legacy;
    std::string device;
    std::string updater;  ///< empty: none is set
};

HostPaths hostPaths(const HostFacts& facts);

/// The device client's default name.
std::string defaultDeviceClient(const HostFacts& facts);

}  // namespace jsw::ctl
