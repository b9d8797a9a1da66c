#include "PublicLib/text/Text.h"
#include "PublicLib/win/Paths.h"
#include "PublicLib/win/SystemFolders.h"
#include "tools/jswctl/Command.h"
#include "tools/jswctl/Host.h"
#include "tools/jswctl/Report.h"
#include "tools/jswctl/content/ContentJudgement.h"
#include "tools/jswctl/content/GatherContent.h"
#include "tools/jswctl/module/ModuleJudgement.h"
#include "tools/jswctl/module/Trial.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw::ctl {

namespace {

struct ContentOptions {
    std::string folder;
    std::string show;
    unsigned seconds = 5;
    bool json = false;
};

/// Shows a page in the job window beside this program, in each of its languages.
void showPage(const ContentOptions& options, const std::string& folder,
              const std::vector<std::string>& languages, Report& report) {
    constexpr unsigned kMargin = 20;  // seconds for everything except showing
    const std::string tools(folderPart(moduleFileName(nullptr)));
    TrialPlan plan;
    plan.scope = TrialScope::calls;
    plan.hostFolder = tools;
    plan.job.dataFolder = folder;
    plan.billboardIds = {options.show};
    plan.job.shownMilliseconds = options.seconds * 1000;
    plan.seconds = options.seconds + kMargin;
    ModuleFacts window;
    window.kind = findModuleKind("view");
    window.fullPath = joinPath(tools, "jswv.dll");
    for (const std::string& code : languages) {
        SetEnvironmentVariableA("JSW_WINDOW_LANGUAGE", code.c_str());
        window.trial = tryModule(*window.kind, window.fullPath, plan);
        judgeTrial(window, report);
        report.note(options.show, concat("shown in ", code));
    }
}

int checkContent(const ContentOptions& options) {
    const std::string folder = inFull(options.folder);
    const DWORD attributes = GetFileAttributesA(folder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        throw BadUse("there is no folder '" + options.folder + "'");
    }
    Report report;
    const ContentFacts facts = gatherContent(folder);
    report.note("content", concat("folder ", folder));
    judgeContent(facts, report);
    std::vector<std::string> languages{"en"};
    for (const auto& [code, file] : facts.languages) languages.push_back(code);
    if (!options.show.empty()) showPage(options, folder, languages, report);
    return show(report, folder, options.json);
}

}  // namespace

void addContentCommand(CommandLine& program) {
    Command command = program.command(
        "content", "Checks catalog, pages and rules of a data folder in the sample format.");
    const auto options = std::make_shared<ContentOptions>();
    command.option("FOLDER", options->folder, "the data folder, as in DataPath").required();
    command
        .option("--show", options->show, "also shows this page in the job window, in each language")
        .shownAs("PAGE.jbb");
    command.option("--seconds", options->seconds, "how long, unless the window is closed earlier")
        .between(1, 3600);
    command.flag("--json", options->json, "write one JSON object instead");
    command.does([options] { return checkContent(*options); });
}

}  // namespace jsw::ctl
