#include "tools/jswctl/module/TrialJob.h"

#include "PublicLib/text/Text.h"

#include <CLI/CLI.hpp>

namespace jsw::ctl {

void addJobOptions(CLI::App& command, TrialJob& job) {
    command.add_option("--job", job.name, "the document of the trial job");
    command.add_option("--printer", job.printer, "its printer");
    command.add_option("--pages", job.pages, "its pages; -1 or -2: unknown");
    command.add_option("--copies", job.copies, "its copies");
    command.add_option("--data", job.dataFolder, "the folder of a view's pages");
    command.add_option("--shown", job.shownMilliseconds)->group("");
    command.add_option("--ink", job.ink, "its ink levels in per cent, slot by slot, as 90,10")
        ->delimiter(',')
        ->allow_extra_args(false);
}

std::string jobInWords(const TrialJob& job) {
    std::string ink;
    for (const std::int32_t percent : job.ink) ink += concat(ink.empty() ? "" : ",", percent);
    return concat("with the job '", job.name, "' on '", job.printer, "', pages ", job.pages,
                  ", copies ", job.copies, ", ink ", ink.empty() ? "unknown" : ink);
}

}  // namespace jsw::ctl
