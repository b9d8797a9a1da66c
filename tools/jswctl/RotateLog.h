#pragma once

#include <string>

namespace jsw::ctl {

/// Renames a host's log to "<id>JSW.old.log" in the same folder and replaces an earlier one. Takes
/// the writers' lock, so no line is lost or torn: the next line starts a new log. Returns an
/// ExitCode.
int rotateLog(const std::string& host);

}  // namespace jsw::ctl
