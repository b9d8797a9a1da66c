#pragma once

#include <string>

namespace jsw::ctl {

/// Moves a host's log out of the way, to "<id>JSW.old.log" beside it, in place of an earlier one.
/// Done under the lock of those who write to it, so no line is lost or torn: the next one begins a
/// log anew. Answers an ExitCode.
int rotateLog(const std::string& host);

}  // namespace jsw::ctl
