// What the user clicks in a billboard: see Controller.h.

#include "PublicLib/calls/ForeignCall.h"
#include "PublicLib/errors/Exception.h"
#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/printer/Printer.h"
#include "PublicLib/text/Text.h"
#include "jsw/Controller.h"
#include "jsw/History.h"
#include "jsw/modules/Catalog.h"
#include "jsw/settings/macros/MacroResolver.h"

#include <windows.h>

#include <shellapi.h>

#include <array>

namespace jsw {

namespace {

/// Runs an action and logs every failure.
/// @param otherFailure  the text for a failure that is no Exception
template <class Work>
void logFailureOf(const char* otherFailure, const Work& work) {
    try {
        work();
    } catch (const Exception& error) {
        logLine(component::kJsw, kLogError, error.text());
    } catch (...) {
        logLine(component::kJsw, kLogError, otherFailure);
    }
}

/// Opens a program, document or address through the shell, without a dialog of the shell. The shell
/// runs foreign code in this process, which may crash.
/// @param directory  working directory, with variables expanded; null: this process's
void launch(const std::string& target, const char* directory, const char* failure) {
    std::array<char, 1000> file{};  // longer texts are cut
    target.copy(file.data(), file.size() - 1);
    SHELLEXECUTEINFOA info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_DOENVSUBST | SEE_MASK_NO_CONSOLE;
    info.lpVerb = "open";
    info.lpFile = file.data();
    info.lpDirectory = directory;
    info.nShow = SW_SHOWNORMAL;
    CallEnd end{};
    const BOOL launched = callForeign(
        component::kJsw, "ShellExecuteExA", [&] { return ShellExecuteExA(&info); }, end);
    const DWORD error = GetLastError();
    if (launched == FALSE && end == CallEnd::returned) {
        logLine(component::kJsw, kLogError, failure, error);
    }
}

}  // namespace

void Controller::doBillboardCallback(const std::string& action, std::uint32_t actionId) {
    MethodTrace trace(component::kJsw, "Controller::doBillboardCallback: ");
    trace.add("theAction ='", action, "' actionId = '", actionId, "'");
    const auto is = [&](const char* name) { return equalsIgnoringCase(action, name); };
    if (is("LAUNCH_URL")) {
        launchUrl(actionId);
    } else if (is("LAUNCH_PLAYGROUND_PROJECT")) {
        trace.add("Need to implement something for LAUNCH_PLAYGROUND_PROJECT action");
    } else if (is("LAUNCH_APP")) {
        launchApp(actionId);
    } else if (is("NEXT")) {
        walkHistory(History::instance()->getNext(), trace);
    } else if (is("PREVIOUS")) {
        walkHistory(History::instance()->getPrevious(), trace);
    } else if (is("CURRENT")) {
        const std::string current = texts_.get(&JobText::currentId);
        changeBillboard(current.empty() ? defaultBillboardId_ : current);
    } else if (is("INK_STATUS")) {
        changeBillboard(texts_.get(&JobText::inkStatusId));
    }
}

void Controller::walkHistory(const std::string& bbId, MethodTrace& trace) {
    if (bbId.empty()) {
        trace.add("No billboard id for NEXT");  // in both directions
    } else {
        changeBillboard(bbId);
    }
}

void Controller::launchApp(std::uint32_t actionId) {
    MethodTrace trace(component::kJsw, "Controller::launchApp: ");
    trace.add("params: actionId=", actionId);
    logFailureOf("exception thrown during launchApp", [&] {
        const std::string command = Catalog::instance()->getBillboardActionParam(
            texts_.get(&JobText::displayedId), static_cast<std::int32_t>(actionId));
        trace.add("Launching app=", command, ".");
        launch(command, nullptr, "Unable to launch application, error=");
    });
}

void Controller::launchUrl(std::uint32_t actionId) {
    MethodTrace trace(component::kJsw, "Controller::launchUrl: ");
    trace.add("params: actionId=", actionId);
    logFailureOf("exception thrown during launchUrl", [&] {
        const std::string param = Catalog::instance()->getBillboardActionParam(
            texts_.get(&JobText::displayedId), static_cast<std::int32_t>(actionId));
        if (param.empty()) {
            trace.add("empty action parameter. Doing nothing.");
            return;
        }
        MacroResolver resolver(Printer::instance(texts_.get(&JobText::friendlyName)));
        const std::string url = resolver.replaceMacros(param);
        trace.add("Launching URL=", url, ".");
        launch(url, "%HOMEDRIVE%%HOMEPATH%", "Unable to launch url, error=");
    });
}

}  // namespace jsw
