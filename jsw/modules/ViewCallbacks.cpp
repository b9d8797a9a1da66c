// The functions that the view module calls back, on threads of its own.

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/calls/EntryGuard.h"
#include "PublicLib/locks/ThreadScoped.h"
#include "jsw/modules/BillboardView.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"

#include <array>
#include <utility>

namespace jsw {

namespace {

/// Whom callbacks may reach. A callback holds it while it runs, so a job may end meanwhile.
struct CallbackTarget {
    std::shared_ptr<BillboardView> view;
    std::shared_ptr<BillboardActions> actions;
};

NeverDestroyed<std::atomic<std::shared_ptr<CallbackTarget>>> connected;

/// An event that is being reported.
struct Event {
    std::int32_t code;
    const CallbackTarget* target;
};
NeverDestroyed<ThreadScoped<Event>> events;

/// Runs a callback's work on its target. Nothing that goes wrong reaches the module.
template <class Work>
void runCallback(const char* name, const Work& work) {
    EntryGuard::run(component::kJsw, name, [&] {
        const auto target = connected->load();
        if (target) work(*target);
    });
}

const char* orEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

}  // namespace

void BillboardView::connectCallbacks(std::shared_ptr<BillboardActions> actions) {
    connected->store(
        std::make_shared<CallbackTarget>(CallbackTarget{instance(), std::move(actions)}));
}

void BillboardView::disconnectCallbacks() {
    connected->store(nullptr);
}

void BillboardView::jswCallback(std::int32_t event) {
    runCallback("jswCallback", [&](const CallbackTarget& target) {
        MethodTrace trace(component::kJsw, "BillboardView::jswCallback: ");
        target.view->jswEvent_ = event;
        // Another thread may report at the same time; the observers of this one see its event.
        const ThreadScoped<Event>::Scope ofThisThread(*events, Event{event, &target});
        target.view->notify();
    });
}

std::int32_t BillboardView::jswEvent() const {
    const Event* ofThisThread = events->innermost();
    return ofThisThread != nullptr ? ofThisThread->code : jswEvent_.load();
}

bool BillboardView::isEventOutlived() {
    const Event* ofThisThread = events->innermost();
    return ofThisThread != nullptr && connected->load().get() != ofThisThread->target;
}

void BillboardView::billboardCallback(const char* action, std::int32_t actionId) {
    runCallback("billboardCallback", [&](const CallbackTarget& target) {
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
        target.actions->doBillboardCallback(action, static_cast<std::uint32_t>(actionId));
    });
}

void BillboardView::saveAppearanceCallback(const char* key, std::int32_t value) {
    runCallback("saveAppearanceCallback", [&](const CallbackTarget& target) {
        target.view->saveAppearance(orEmpty(key), value);
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
    runCallback("saveValueCallback", [&](const CallbackTarget& /*target*/) {
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
    runCallback("saveUpdateSoftwareCallback", [&](const CallbackTarget& /*target*/) {
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
