#include "tools/jswctl/log/StoryTexts.h"

#include "tools/jswctl/log/Pattern.h"

namespace jsw::ctl::log {

namespace {

// The first matching pattern counts.
constexpr StoryText kStoryTexts[] = {
    // The settings, and the changes of an update.
    {"+SettingsInstaller::SettingsInstaller(fileName={}):",
     "first run: installs the settings file {1}"},
    {"AppUpdatesController::performPostUpdateChangesIfRequired() Initial run of the JSW. An update "
     "could not have been performed yet.",
     "first run with these settings"},
    {"AppUpdatesController::setInitialPaths() Setting initial data path={}.",
     "sets the data folder to {1}"},
    {"AppUpdatesController::setInitialPaths() Setting initial dll path={}.",
     "sets the module folder to {1}"},
    {"AppUpdatesController::performPostUpdateChangesIfRequired() {} file was updated, updating "
     "file "
     "name in setting to : {}",
     "update: switches to {2} ({1})"},
    {"AppUpdatesController::performPostUpdateChangesIfRequired() Updating the data path to : {}",
     "update: switches to the data folder {1}"},

    // Modules.
    {"BillboardView::BillboardView: Loading view DLL, filename={}.", "loads the view {1}"},
    {"Catalog::initialize: Loading catalog DLL, filename={}.", "loads the catalog {1}"},
    {"RulesEngine::RulesEngine: Loading RulesEngine DLL, filename={}.",
     "loads the rules engine {1}"},
    {"LegacyJswGui::LegacyJswGui: Loading JSW GUI DLL, filename={}.",
     "loads the older job window {1}"},

    // Window and billboards.
    {"BillboardView::displayBillboard: billboard= '{}' enableBillboardNavigation={} "
     "restoreWindow={}",
     "shows the page {1}"},
    {"BillboardView::jswInit: Showing GUI", "shows the window"},
    {"BillboardView::jswInit: guiShowProcessWindow indicates GUI should NOT be shown!",
     "keeps the window hidden: the user has switched it off"},
    {"Controller::ProcessRules: Rule result is ProjectId={}, checkHistory=true",
     "rules: billboard \"{1}\", unless it was shown before"},
    {"Controller::ProcessRules: Rule result is ProjectId={}, checkHistory=false",
     "rules: billboard \"{1}\", shown before or not"},
    {"Controller::ProcessRules: Rule result is CategoryId={}, checkHistory=true",
     "rules: category \"{1}\", without billboards shown before"},
    {"Controller::ProcessRules: Rule result is CategoryId={}, checkHistory=false",
     "rules: category \"{1}\", shown before or not"},
    {"Controller::ProcessRules: ProjectId={} was in History (failed history check).",
     "rules: skip \"{1}\", it was shown before"},
    {"Controller::ProcessRules: WARNING:  Billboard id='{}' not valid. Billboard is being "
     "bypassed.",
     "rules: skip \"{1}\", its page cannot be shown"},
    {"Controller::ProcessRules: ProjectId={}", "rules: the category contains \"{1}\""},
    {"Controller::changeBillboard: Billboard id={}, fileName={}.", "changes to billboard \"{1}\""},

    // The user and the driver.
    {"Controller::doBillboardCallback: theAction ='{}' actionId = '{}'",
     "the user clicks: {1}, number {2}"},
    {"Controller::doBillboardCallback: No billboard id for NEXT", "there is no other billboard"},
    {"Controller::launchUrl: Launching URL={}.", "opens {1}"},
    {"Controller::launchApp: Launching app={}.", "starts {1}"},
    {"BillboardView::saveAppearanceCallback: key='{}' value={}", "the user sets \"{1}\" to {2}"},
    {"BillboardView::saveValueCallback: key='{}' value={}", "the view saves \"{1}\" = {2}"},
    {"BillboardView::saveUpdateSoftwareCallback: updateSoftware=0",
     "the user switches updates off"},
    {"BillboardView::saveUpdateSoftwareCallback: updateSoftware={}",
     "the user switches updates on"},
    {"Controller::update: JSW GUI closed", "the user closes the window"},
    {"Controller::update: JOB closed", "the view reports that the job was closed"},
    {"Controller::update: job cancelled", "the user cancels the job"},
    {"Controller::update: unknown status(={}) in callback", "the view reports the status {1}"},
    {"Controller::jswDisplayPrompt: params: promptType={}totalPages={}",
     "the driver asks the user: prompt {1}"},
    {"-LegacyJswGui::jswDisplayPrompt: ", "the prompt is answered"},

    // The end.
    {"History::save: Save not needed.", "the history is unchanged"},
    {"AppUpdatesController::checkForUpdates() The check for updates has been TURNED OFF!",
     "updates: switched off"},
    {"AppUpdatesController::isItTimeToCheckForUpdates: The last check for updates was performed on "
     ": {}",
     "updates: last check on {1} (month/day/year)"},
    {"AppUpdatesController::isItTimeToCheckForUpdates: Interval between checks is : {}",
     "updates: a check every {1} days"},
    {"AppUpdatesController::checkForUpdates() It is not time to check for updates yet.",
     "updates: not due"},
    {"AppUpdatesController::checkForUpdates() It it time to check for updates. Attempting to "
     "initiate the update process",
     "updates: due"},
    {"AppUpdatesController::checkForUpdatesXp: Launching={}.", "updates: starts {1}"},
    {"AppUpdatesController::checkForUpdatesXp: API CreateProcessAsUser success, retCode={}.",
     "updates: the updater was started"},
    {"AppUpdatesController::checkForUpdatesVista: Updater launched successfully.",
     "updates: the updater was started"},
};

}  // namespace

std::span<const StoryText> storyTexts() {
    return kStoryTexts;
}

std::optional<std::string> tell(std::string_view text) {
    Captures captures;
    for (const StoryText& known : kStoryTexts) {
        if (matches(known.pattern, text, captures)) return fillIn(known.sentence, captures);
    }
    return std::nullopt;
}

}  // namespace jsw::ctl::log
