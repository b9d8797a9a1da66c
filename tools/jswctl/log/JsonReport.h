#pragma once

#include "tools/jswctl/log/LoggedJob.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"

#include <functional>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// Makes one JSON object of a log of any size, piece by piece:
/// {"jobs": [...], "log": {...}, "moduleCalls": [...], "slowest": [...], "trouble": [...]}.
class JsonReport {
  public:
    using ToUtf8 = std::function<std::string(std::string_view)>;

    /// @param toUtf8  converts texts from the log's code page
    explicit JsonReport(ToUtf8 toUtf8);

    /// A job, with the text before it.
    std::string job(const LoggedJob& job);
    /// Everything after the last job.
    std::string end(const Totals& totals, const Statistics& statistics);

  private:
    std::string beforeJob();

    ToUtf8 toUtf8_;
    bool begun_ = false;
};

}  // namespace jsw::ctl::log
