#pragma once

#include "PublicLib/text/Text.h"
#include "PublicLib/win/Handles.h"
#include "tests/support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

namespace jsw::ctl {

/// What a run of jswctl.exe came to.
struct Outcome {
    DWORD exitCode;
    std::string output;
    std::string errors;

    bool says(const std::string& text) const { return output.find(text) != std::string::npos; }
};

/// A file that a child process writes its stream to.
inline KernelHandle streamFile(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    return KernelHandle(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                    CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Runs jswctl.exe to its end.
inline Outcome jswctl(const std::string& arguments, const test::TempFolder& folder) {
    static int count = 0;
    const std::string output = folder.file(concat("output", ++count, ".txt"));
    const std::string errors = folder.file(concat("errors", count, ".txt"));
    KernelHandle outputFile = streamFile(output);
    KernelHandle errorFile = streamFile(errors);
    EXPECT_TRUE(outputFile && errorFile);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = outputFile.get();
    startup.hStdError = errorFile.get();
    std::string command = "jswctl.exe " + arguments;
    PROCESS_INFORMATION info{};
    EXPECT_TRUE(CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &startup, &info));
    const KernelHandle process(info.hProcess);
    const KernelHandle thread(info.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    Outcome run{};
    GetExitCodeProcess(process.get(), &run.exitCode);
    outputFile.reset();
    errorFile.reset();
    run.output = test::readFile(output);
    run.errors = test::readFile(errors);
    return run;
}

}  // namespace jsw::ctl
