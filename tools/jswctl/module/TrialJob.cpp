#include "tools/jswctl/module/TrialJob.h"

#include "PublicLib/text/Text.h"
#include "tools/jswctl/Command.h"

namespace jsw::ctl {

void addJobOptions(Command& command, TrialJob& job) {
    command.option("--job", job.name, "the document of the trial job");
    command.option("--printer", job.printer, "its printer");
    command.option("--pages", job.pages, "its pages; -1 or -2: unknown");
    command.option("--copies", job.copies, "its copies");
    command.option("--data", job.dataFolder, "the folder of a view's pages");
    command.option("--shown", job.shownMilliseconds).hidden();
    command.option("--ink", job.ink, "its ink levels in per cent, slot by slot, as 90,10");
}

std::string jobInWords(const TrialJob& job) {
    std::string ink;
    for (const std::int32_t percent : job.ink) ink += concat(ink.empty() ? "" : ",", percent);
    return concat("with the job '", job.name, "' on '", job.printer, "', pages ", job.pages,
                  ", copies ", job.copies, ", ink ", ink.empty() ? "unknown" : ink);
}

}  // namespace jsw::ctl
