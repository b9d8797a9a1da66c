#include "tests/job/RecordedShell.h"

#include "PublicLib/text/Text.h"

namespace jsw::test {

namespace {

constexpr INT_PTR kStarted = 33;  // and more

std::string orNull(const char* text) {
    return text != nullptr ? text : "null";
}

}  // namespace

RecordedShell::RecordedShell()
    : open_(
          imports_, "ShellExecuteExA",
          [this](SHELLEXECUTEINFOA* info) -> BOOL {
              calls.add(concat("open(", info->lpFile, ")"));
              details.add(concat(info->lpVerb, "|", info->lpFile, "|", orNull(info->lpParameters),
                                 "|", orNull(info->lpDirectory), "|", info->cbSize == sizeof(*info),
                                 "|", info->fMask, "|", info->nShow, "|", info->hwnd == nullptr));
              return answer() >= kStarted;
          }),
      elevate_(imports_, "ShellExecuteA",
               [this](HWND owner, const char* verb, const char* file, const char* parameters,
                      const char* directory, INT show) {
                   calls.add(concat("elevate(", file, ")"));
                   details.add(concat(verb, "|", file, "|", orNull(parameters), "|",
                                      orNull(directory), "|", show, "|", owner == nullptr));
                   return reinterpret_cast<HINSTANCE>(answer());
               }) {
}

INT_PTR RecordedShell::answer() {
    if (onCall) onCall();
    SetLastError(error);
    return error == 0 ? kStarted : kStarted - 1;
}

}  // namespace jsw::test
