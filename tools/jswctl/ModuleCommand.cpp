#include "PublicLib/win/Paths.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/Report.h"
#include "tools/jswctl/module/GatherModule.h"
#include "tools/jswctl/module/ModuleJudgement.h"
#include "tools/jswctl/module/Trial.h"

#include <windows.h>

#include <memory>

namespace jsw::ctl {

namespace {

struct ModuleOptions {
    std::string kind;
    std::string file;
    bool json = false;
    unsigned seconds = TrialPlan().seconds;
    TrialJob job;
};

/// A wrong file on the command line is the user's mistake.
void requireFile(const std::string& file) {
    const DWORD attributes = GetFileAttributesA(file.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) throw BadUse("there is no file '" + file + "'");
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw BadUse("'" + file + "' is a folder, not a module");
    }
}

int checkModule(const ModuleOptions& options) {
    const ModuleKind* kind = findModuleKind(options.kind);
    if (kind == nullptr) {
        throw BadUse("'" + options.kind + "' is not a kind of module; the kinds are " +
                     moduleKindNames());
    }
    requireFile(options.file);
    const std::string path = inFull(options.file);
    TrialPlan plan;
    plan.scope = TrialScope::calls;
    if (options.kind == "catalog") plan.billboardIds = {"DEFAULT", "INK_STATUS"};
    plan.hostFolder = std::string(folderPart(path));
    plan.job = options.job;
    plan.seconds = options.seconds;
    ModuleFacts facts = gatherModule(*kind, path, plan.hostFolder);
    if (isLoadable(facts)) facts.trial = tryModule(*kind, path, plan);
    Report report;
    report.note("trial", jobInWords(plan.job));
    judgeModule(facts, report);
    tellCalls(facts, report);
    return show(report, path, options.json);
}

}  // namespace

void addModuleCommand(CommandLine& program) {
    Command command =
        program.command("module", "Checks one module, calls it as a job does and times each call.");
    const auto options = std::make_shared<ModuleOptions>();
    command.option("KIND", options->kind, moduleKindNames()).required();
    command.option("FILE.dll", options->file, "the module, a 64-bit library").required();
    addJobOptions(command, options->job);
    command.option("--seconds", options->seconds, "after how many seconds the trial is ended")
        .between(1, 3600);
    command.flag("--json", options->json, "write one JSON object instead");
    command.does([options] { return checkModule(*options); });
}

}  // namespace jsw::ctl
