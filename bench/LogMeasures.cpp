#include "PublicLib/locks/InterProcessLock.h"
#include "PublicLib/locks/Security.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/win/Handles.h"
#include "bench/DisabledSpdlog.h"
#include "bench/Host.h"
#include "bench/Measures.h"

#include <windows.h>

#include <array>
#include <cstdlib>
#include <mutex>

namespace jsw::bench {

namespace {

const std::string kText(40, 'x');

void tracedMethod(const std::string& text) {
    MethodTrace trace(component::kJsw, "Bench::tracedMethod: ");
    trace.add("text=", text);
}

/// The minimum for appending a line under a lock with the same safety: others may append at the
/// same time, and no process keeps the file open.
class BareLog {
  public:
    BareLog() = default;
    ~BareLog() { DeleteFileA(path_.c_str()); }
    BareLog(const BareLog&) = delete;
    BareLog& operator=(const BareLog&) = delete;

    void append(const std::string& line) {
        const std::lock_guard lock(lock_);
        open(OPEN_EXISTING);  // to find out whether the file exists
        const KernelHandle file = open(OPEN_ALWAYS);
        DWORD high = 0;
        const DWORD low = GetFileSize(file.get(), &high);
        auto distanceHigh = static_cast<LONG>(high);
        SetFilePointer(file.get(), static_cast<LONG>(low), &distanceHigh, FILE_BEGIN);
        DWORD written = 0;
        WriteFile(file.get(), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    }

  private:
    KernelHandle open(DWORD disposition) {
        return KernelHandle(CreateFileA(path_.c_str(), GENERIC_READ | GENERIC_WRITE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE, security_.attributes(),
                                        disposition, FILE_ATTRIBUTE_NORMAL, nullptr));
    }

    // In the log's folder, because the depth of a path costs time, too.
    std::string path_ = concat(std::getenv("ALLUSERSPROFILE"), "\\bare.log");
    InterProcessLock lock_{"JSW bench"};
    Security security_;
};

}  // namespace

void measureDisabledTrace(Report& report, Thoroughness times) {
    const Host host(0);
    Sleep(2);  // a switch read in the same millisecond would be read again
    const std::array<Work, 3> works{repeated([] { tracedMethod(kText); }),
                                    repeated([] { GetTickCount(); }),
                                    repeated([] { disabledCallOfSpdlog(kText); })};
    const auto timings = timeInTurns(works, {100 * times, 50'000});
    report.add(Row{"a disabled trace", timings[0], "a tick read", timings[1]}
                   .withTimeAtMost(10)
                   .withRatioAtMost(4));
    report.add({"a disabled trace", timings[0], "a disabled call of spdlog", timings[2]});
}

void measureLogLine(Report& report, Thoroughness times) {
    const Host host(1);
    BareLog bareLog;
    const std::string wholeLine =
        "2026/01/01-00:00:00.000 JSW                       " + kText + "\r\n";
    const std::array<Work, 2> works{repeated([] { logLine(component::kJsw, kLogTrace, kText); }),
                                    repeated([&] { bareLog.append(wholeLine); })};
    const auto timings = timeInTurns(works, {100 * times, 20});
    report.add(
        Row{"a log line", timings[0], "the same calls bare", timings[1]}.withRatioAtMost(1.10));
}

}  // namespace jsw::bench
