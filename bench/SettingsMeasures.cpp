#include "PublicLib/win/Handles.h"
#include "bench/Host.h"
#include "bench/Measures.h"

#include <windows.h>

#include <array>

namespace jsw::bench {

void measureSettings(Report& report, Thoroughness times) {
    const Host host(0);
    const Settings kept;
    kept.write(setting::kDataPath, "C:\\ProgramData\\Job Status\\Office printer");
    const std::string path = kept.getKeyPath(false) + setting::kDataPath.key;
    std::string value;
    const std::array<Work, 3> works{
        repeated([&] { kept.read(setting::kDataPath, value); }),
        repeated([&] { Settings().read(setting::kDataPath, value); }), repeated([&] {
            KeyHandle key;
            std::array<BYTE, MAX_PATH> buffer;
            auto size = static_cast<DWORD>(buffer.size());
            RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, key.put());
            RegQueryValueExA(key.get(), setting::kDataPath.name, nullptr, nullptr, buffer.data(),
                             &size);
        })};
    const auto timings = timeInTurns(works, {400 * times, 10});
    constexpr char kFloor[] = "a bare open, query and close";
    report.add({"a setting read", timings[0], kFloor, timings[2]});
    report.add(Row{"a setting read, the object made for it", timings[1], kFloor, timings[2]}
                   .withRatioAtMost(1.15));
}

}  // namespace jsw::bench
