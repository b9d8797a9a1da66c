#include "tools/jswctl/module/Trial.h"

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/module/TrialLines.h"

#include <windows.h>

#include <array>

namespace jsw::ctl {

namespace {

constexpr DWORD kPollInterval = 10;  // milliseconds

/// A copy of this program under the host's name, in a temporary folder, during the object's
/// lifetime.
class NamedCopy {
  public:
    explicit NamedCopy(const std::string& name) : path_(moduleFileName(nullptr)) {
        if (name.empty()) return;
        std::array<char, MAX_PATH> temporary{};
        GetTempPathA(MAX_PATH, temporary.data());
        const std::string folder = joinPath(
            temporary.data(), concat("jswctl-", GetCurrentProcessId(), "-", GetTickCount()));
        const std::string copy = joinPath(folder, name);
        if (CreateDirectoryA(folder.c_str(), nullptr) == FALSE) return;
        folder_ = folder;
        if (CopyFileA(path_.c_str(), copy.c_str(), TRUE) != FALSE) path_ = copy;
    }
    ~NamedCopy() {
        if (folder_.empty()) return;
        // The file is released shortly after its process has ended.
        for (int attempt = 0; attempt < 100; ++attempt) {
            if (DeleteFileA(path_.c_str()) != FALSE || GetLastError() == ERROR_FILE_NOT_FOUND)
                break;
            Sleep(kPollInterval);
        }
        RemoveDirectoryA(folder_.c_str());
    }
    NamedCopy(const NamedCopy&) = delete;
    NamedCopy& operator=(const NamedCopy&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
    std::string folder_;
};

/// The read end of a pipe whose write end a child inherits.
struct Pipe {
    KernelHandle reader;
    KernelHandle writer;

    Pipe() {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        CreatePipe(reader.put(), writer.put(), &inherited, 0);
        SetHandleInformation(reader.get(), HANDLE_FLAG_INHERIT, 0);
    }
};

/// Reads complete lines; an incomplete line waits for its rest.
class TrialOutput {
  public:
    TrialOutput(HANDLE pipe, ModuleTrial& trial) : pipe_(pipe), trial_(trial) {}

    void takeAll() {
        DWORD available = 0;
        while (PeekNamedPipe(pipe_, nullptr, 0, nullptr, &available, nullptr) != FALSE &&
               available > 0) {
            std::string chunk(available, '\0');
            DWORD read = 0;
            if (ReadFile(pipe_, chunk.data(), available, &read, nullptr) == FALSE) return;
            rest_.append(chunk, 0, read);
            takeLines();
        }
    }

  private:
    void takeLines() {
        for (std::size_t end; (end = rest_.find('\n')) != std::string::npos;) {
            takeTrialLine(std::string_view(rest_).substr(0, end), trial_);
            rest_.erase(0, end + 1);
        }
    }

    HANDLE pipe_;
    ModuleTrial& trial_;
    std::string rest_;
};

/// A module's output must not mix with this program's lines.
KernelHandle openNull() {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return KernelHandle(CreateFileA("NUL", GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, OPEN_EXISTING,
                                    0, nullptr));
}

/// Quotes an argument for a command line.
std::string quoted(const std::string& text) {
    std::string result = "\"";
    std::size_t backslashes = 0;
    for (const char letter : text) {
        if (letter == '"') result.append(backslashes + 1, '\\');
        backslashes = letter == '\\' ? backslashes + 1 : 0;
        result += letter;
    }
    return result.append(backslashes, '\\') + "\"";
}

std::string commandLine(const std::string& program, const ModuleKind& kind, const std::string& path,
                        const TrialPlan& plan, HANDLE pipe) {
    std::string command =
        concat(quoted(program), " try ", kind.name, " ", quoted(path), " --scope ",
               static_cast<int>(plan.scope), " --pipe ", reinterpret_cast<std::uintptr_t>(pipe),
               " --pages=", plan.job.pages, " --copies=", plan.job.copies,
               " --shown=", plan.job.shownMilliseconds, " ",
               quoted("--data=" + plan.job.dataFolder), " ", quoted("--folder=" + plan.hostFolder),
               " ", quoted("--job=" + plan.job.name), " ", quoted("--printer=" + plan.job.printer));
    for (const std::int32_t percent : plan.job.ink) command += concat(" --ink=", percent);
    for (const std::string& id : plan.billboardIds) command += " " + quoted("--id=" + id);
    return command;
}

/// A job object that ends with its last handle and kills everything in it, however this process
/// ends.
KernelHandle makeCage() {
    KernelHandle cage(CreateJobObjectA(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(cage.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return cage;
}

KernelHandle start(const std::string& program, std::string command, HANDLE cage) {
    const KernelHandle null = openNull();
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = startup.hStdOutput = startup.hStdError = null.get();
    PROCESS_INFORMATION info{};
    if (CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, TRUE,
                       CREATE_NO_WINDOW | CREATE_SUSPENDED, nullptr, nullptr, &startup,
                       &info) == FALSE) {
        return {};
    }
    const KernelHandle thread(info.hThread);
    AssignProcessToJobObject(cage, info.hProcess);
    ResumeThread(thread.get());
    return KernelHandle(info.hProcess);
}

/// Reads until the process ends or the timeout.
void watch(HANDLE process, DWORD milliseconds, TrialOutput& lines, ModuleTrial& trial) {
    const DWORD begin = GetTickCount();
    while (WaitForSingleObject(process, kPollInterval) == WAIT_TIMEOUT) {
        lines.takeAll();
        if (GetTickCount() - begin < milliseconds) continue;
        trial.timedOut = true;
        TerminateProcess(process, ERROR_TIMEOUT);
        WaitForSingleObject(process, INFINITE);
        break;
    }
    lines.takeAll();
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    trial.exitCode = code;
}

}  // namespace

ModuleTrial tryModule(const ModuleKind& kind, const std::string& path, const TrialPlan& plan) {
    ModuleTrial trial;
    const NamedCopy copy(plan.hostName);
    Pipe pipe;
    const KernelHandle cage = makeCage();
    const KernelHandle process = start(
        copy.path(), commandLine(copy.path(), kind, path, plan, pipe.writer.get()), cage.get());
    pipe.writer.reset();
    if (!process) {
        trial.problem = concat("it could not be tried: ", errorText(GetLastError()));
        return trial;
    }
    trial.started = true;
    TrialOutput lines(pipe.reader.get(), trial);
    watch(process.get(), plan.seconds * 1000, lines, trial);
    return trial;
}

}  // namespace jsw::ctl
