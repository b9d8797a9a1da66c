// The functions that the view module calls back, on threads of its own.

#include "PublicLib/calls/EntryGuard.h"
#include "jsw/modules/BillboardView.h"
#include "jsw/modules/JobSession.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"

#include <array>

namespace jsw {

namespace {

/// Runs a callback's work on the present job; does nothing without one. No failure reaches the
/// module.
template <class Work>
void runCallback(const char* name, const Work& work) {
    EntryGuard::run(component::kJsw, name, [&] {
        const auto session = JobSession::present();
        if (session) work(*session);
    });
}

const char* orEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

void BillboardView::jswCallback(std::int32_t event) {
    runCallback("jswCallback", [&](const JobSession& session) {
        MethodTrace trace(component::kJsw, "BillboardView::jswCallback: ");
        session.view().notify({static_cast<std::uint32_t>(event), session});
    });
}

void BillboardView::billboardCallback(const char* action, std::int32_t actionId) {
    runCallback("billboardCallback", [&](const JobSession& session) {
        MethodTrace trace(component::kJsw, "BillboardView::billboardCallback: ");
        if (action == nullptr) {
            trace.add("ERROR - action pointer is NULL");
            return;
        }
        if (*action == '\0') {
            trace.add("ERROR - action is empty string");
            return;
        }
        trace.add("action ='", action, "' actionId = '", actionId, "'");
        session.actions().doBillboardCallback(action, static_cast<std::uint32_t>(actionId));
    });
}

void BillboardView::saveAppearanceCallback(const char* key, std::int32_t value) {
    runCallback("saveAppearanceCallback", [&](const JobSession& session) {
        session.view().saveAppearance(orEmpty(key), value);
    });
}

void BillboardView::saveAppearance(const std::string& key, std::int32_t value) {
    MethodTrace trace(component::kJsw, "BillboardView::saveAppearanceCallback: ");
    trace.add("key='", key, "' value=", value);
    const std::array<const setting::Number*, 3> supported{&setting::kJobProgressMinimized,
                                                          &setting::kShowProcessWindow,
                                                          &setting::kShowSpecialMessages};
    for (const setting::Number* number : supported) {
        if (!equalsIgnoringCase(key, number->name)) continue;
        OfnSettings(ofnPath_).setValue(number->key, key, static_cast<std::uint32_t>(value));
        if (number == &setting::kShowSpecialMessages) showSpecialMessages_ = value != 0;
        return;
    }
    trace.add("ERROR - Unsupported key");
}

void BillboardView::saveValueCallback(const char* key, const char* value) {
    runCallback("saveValueCallback", [&](const JobSession& /*session*/) {
        MethodTrace trace(component::kJsw, "BillboardView::saveValueCallback: ");
        trace.add("key='", key, "' value=", value);
        if (key == nullptr) {
            trace.add("ERROR - key pointer is NULL");
            return;
        }
        Settings().setValue(setting::kGuiKey, key, orEmpty(value));
    });
}

void BillboardView::saveUpdateSoftwareCallback(std::int32_t updateSoftware) {
    runCallback("saveUpdateSoftwareCallback", [&](const JobSession& /*session*/) {
        MethodTrace trace(component::kJsw, "BillboardView::saveUpdateSoftwareCallback: ");
        trace.add("updateSoftware=", updateSoftware);
        const setting::Number& check = setting::kCheckForUpdates;
        if (!Settings().write(check, static_cast<std::uint32_t>(updateSoftware))) {
            trace.add("Unable to write the registry for key='", check.key, "' and value name='",
                      check.name, "'.");
        }
    });
}

}  // namespace jsw
