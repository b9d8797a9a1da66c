#pragma once

#include "tools/jswctl/log/LoggedJob.h"
#include "tools/jswctl/log/ReadLog.h"
#include "tools/jswctl/log/Statistics.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace jsw::ctl::log {

/// Makes a self-contained page of a log, without scripts. It contains the log's texts byte for byte
/// in the log's code page; its own texts are ASCII.
class HtmlReport {
  public:
    /// The number of jobs on the page: the last ones.
    static constexpr std::size_t kMaxJobs = 100;

    void add(const LoggedJob& job);

    /// The whole page.
    /// @param file  the log's path; the heading has its name without the folder
    std::string page(std::string_view file, const Totals& totals,
                     const Statistics& statistics) const;

  private:
    std::deque<std::string> jobs_;  // as sections
    std::uint64_t leftOut_ = 0;
};

}  // namespace jsw::ctl::log
