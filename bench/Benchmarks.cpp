// What the library costs its driver. Run in a prefix of its own: it uses the store of host "qlbe"
// and needs no modules, so the window's own time is left out.

#define CATCH_CONFIG_MAIN
#define CATCH_CONFIG_ENABLE_BENCHMARKING

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/os/Localize.h"
#include "PublicLib/printer/PrinterCache.h"
#include "PublicLib/win/EntryPoint.h"
#include "PublicLib/win/Handles.h"
#include "jsw/jsw.h"
#include "jsw/settings/RegistryKey.h"
#include "jsw/settings/Settings.h"
#include "jsw/settings/macros/MacroResolver.h"

#include <catch2/catch.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace {

/// The host's names, an empty store and the log, for one benchmark.
class Host {
  public:
    explicit Host(std::uint32_t startLog) {
        jsw::Localize::createInstance(nullptr);
        jsw::RegistryKey(jsw::Localize::getInstance()->getRegistryPath(jsw::StoreKind::local),
                         true);
        jsw::Settings().setDwordValue(jsw::setting::kLoggerKey, "startLog", startLog);
        jsw::BasicLogger::createInstance(15);
    }
    ~Host() {
        jsw::BasicLogger::getInstance().deleteLog();
        jsw::BasicLogger::destroyInstance();
        jsw::Settings().removeStore();
        jsw::Localize::destroy();
    }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

void tracedMethod(const std::string& text) {
    jsw::MethodTrace trace(jsw::component::kJsw, "Bench::tracedMethod: ");
    trace.add("text=", text);
}

}  // namespace

TEST_CASE("Logging") {
    const std::string text(40, 'x');
    {
        const Host host(0);
        tracedMethod(text);
        BENCHMARK("a traced method, log off") {
            tracedMethod(text);
        };
    }
    {
        const Host host(1);
        BENCHMARK("a traced method, log on: three lines") {
            tracedMethod(text);
        };
    }
}

TEST_CASE("Settings") {
    const Host host(0);
    const jsw::Settings settings;
    settings.write(jsw::setting::kDataPath, "C:\\data");
    std::string value;
    BENCHMARK("read a text") {
        return settings.read(jsw::setting::kDataPath, value);
    };
    BENCHMARK("write a text") {
        return settings.write(jsw::setting::kDataPath, "C:\\data");
    };
}

TEST_CASE("Printer data") {
    const Host host(0);
    std::vector<std::uint8_t> record{0, 0};
    while (record.size() + 7 <= 4096) {
        record.insert(record.end(), {0x04, 0x00, 4, 0, 0, 0, 9});  // black dot counts
    }
    BENCHMARK("parse a cache record of 4 KB") {
        return jsw::PrinterCache(record.data(), record.size()).getCartridgeCount();
    };
    const std::string address =
        "http://example.com/?c=_^CountryCode^_&l=_^LanguageCode^_&x=_^Unknown^_";
    BENCHMARK("expand an address with three tags") {
        return jsw::MacroResolver().replaceMacros(address);
    };
}

TEST_CASE("Driver calls") {
    const jsw::ModuleHandle library(LoadLibraryA("jsw.dll"));
    REQUIRE(library);
    auto* update = jsw::findEntryPoint<decltype(JSWUpdateInfo)>(library.get(), "JSWUpdateInfo");
    auto* init = jsw::findEntryPoint<decltype(JSWInit)>(library.get(), "JSWInit");
    auto* terminate = jsw::findEntryPoint<decltype(JSWTerminate)>(library.get(), "JSWTerminate");
    BENCHMARK("JSWUpdateInfo without a job") {
        update(1, 1, 1, 0, 0, nullptr);
    };
    BENCHMARK("a job without modules, start to end") {
        init("SimulatedPrinter", "bench", 0, 1, 1, 1, 1, nullptr, 0, 0, nullptr);
        terminate();
    };
    init("SimulatedPrinter", "bench", 0, 1, 1, 1, 1, nullptr, 0, 0, nullptr);
    BENCHMARK("JSWUpdateInfo in a job") {
        update(1, 1, 1, 0, 0, nullptr);
    };
    terminate();
}
