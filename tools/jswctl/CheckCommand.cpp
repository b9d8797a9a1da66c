#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/Report.h"
#include "tools/jswctl/check/GatherHost.h"
#include "tools/jswctl/check/Judgement.h"

#include <memory>

namespace jsw::ctl {

namespace {

struct CheckOptions {
    std::string host;
    bool json = false;
};

int check(const CheckOptions& options) {
    nameExistingHost(options.host);
    const HostFacts facts = gatherHost();
    Report report;
    judgeHost(facts, report);
    return show(report, facts.hostPath, options.json);
}

}  // namespace

void addCheckCommand(CommandLine& program) {
    Command command = program.command(
        "check", "Shows what a job of a host would find when started in the current folder.");
    const auto options = std::make_shared<CheckOptions>();
    addHostArgument(command, options->host);
    command.flag("--json", options->json, "write one JSON object instead");
    command.does([options] { return check(*options); });
}

}  // namespace jsw::ctl
