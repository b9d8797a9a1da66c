#include "tools/jswctl/module/TrialCalls.h"

#include "tools/jswctl/module/ReturnedMemory.h"
#include <jsw/catalog.h>
#include <jsw/device.h>
#include <jsw/legacy.h>
#include <jsw/rules.h>
#include <jsw/view.h>

#include <algorithm>

namespace jsw::ctl {

namespace {

constexpr int kMostRules = 1000;
constexpr std::int32_t kMostPages = 100;

InkInfo inkOf(const TrialJob& job) {
    InkInfo ink = JSW_INK_UNKNOWN;
    const std::size_t known = std::min(job.ink.size(), std::size_t{JSW_INK_SLOTS});
    std::copy_n(job.ink.begin(), known, std::begin(ink.InkPercent));
    return ink;
}

void useCatalog(const Caller& caller, const std::vector<std::string>& ids) {
    caller.call<JswCatalogInitialize>("Initialize", &returned::allocate);
    for (const std::string& id : ids) {
        const char* const text = id.c_str();
        caller.ask<JswCatalogText>("GetBillboardFileName", id, text);
        caller.ask<JswCatalogText>("GetBillboardType", id, text);
        caller.ask<JswCatalogList>("GetBillboardActions", id, text);
        caller.ask<JswCatalogFlag>("GetBillboardEnableNavigation", id, text);
        caller.ask<JswCatalogFlag>("GetBillboardRestoreWindow", id, text);
        caller.ask<JswCatalogText>("GetBillboardCarts", id, text);
        caller.ask<JswCatalogList>("GetBillboardIds", id, text);
    }
    caller.call<JswCatalogUnInitialize>("UnInitialize");
}

void useRules(const Caller& caller, const TrialJob& job) {
    const InkInfo ink = inkOf(job);
    const std::string started = caller.ask<JswRulesInitializeEngine>(
        "InitializeEngine", "", &returned::allocate, &ink, job.printer.c_str(), job.name.c_str(),
        job.pages, job.copies);
    int rules = 0;
    while (started == kYes && caller.ask<JswRulesQuestion>("IsMoreRules", "") == kYes) {
        const std::string result = caller.ask<JswRulesEvaluateRule>("EvaluateRule", "");
        if (!result.empty() && result != kNoAnswer) {
            caller.ask<JswRulesQuestion>("IsHistoryChecked", "");
        }
        if (++rules < kMostRules) continue;
        caller.tell(trialline::fault(concat("IsMoreRules still says yes after ", kMostRules,
                                            " rules; choosing a billboard would never end")));
        break;
    }
    caller.call<JswRulesUnInitialize>("UnInitialize");
}

HANDLE windowClosed = nullptr;  // set when the user closes a view's window

// The window's other reports are ignored.
void onEvent(std::int32_t event) {
    if (event == JSW_STATUS_GUI_CLOSED) SetEvent(windowClosed);
}
void onBillboard(const char* /*action*/, std::int32_t /*actionId*/) {
}
void onAppearance(const char* /*key*/, std::int32_t /*value*/) {
}
void onValue(const char* /*key*/, const char* /*value*/) {
}
void onUpdateSoftware(std::int32_t /*updateSoftware*/) {
}

void useView(const Caller& caller, const TrialJob& job, const std::string& page) {
    const InkInfo ink = inkOf(job);
    windowClosed = CreateEventA(nullptr, TRUE, FALSE, nullptr);  // until the process ends
    caller.call<JswViewPlain>("Initialize");
    caller.call<JswViewText>("SetDataPath", job.dataFolder.c_str());
    caller.call<JswViewText>("SetJobName", job.name.c_str());
    caller.call<JswViewText>("SetPrinterFriendlyName", job.printer.c_str());
    caller.call<JswViewNumber>("SetJobType", 0);
    caller.call<JswViewNumber>("SetCurrentPage", 1);
    caller.call<JswViewNumber>("SetTotalPages", job.pages);
    caller.call<JswViewShowPageInfo>("SetShowPageInfo", JswBool{1});
    caller.call<JswViewNumber>("SetCurrentCopy", 1);
    caller.call<JswViewNumber>("SetTotalCopies", job.copies);
    caller.call<JswViewInkInfo>("SetInkInfo", &ink);
    caller.call<JswViewNumber>("SetPortType", 0);
    caller.call<JswViewSetEventCallback>("SetJswCallback", &onEvent);
    caller.call<JswViewSetBillboardCallback>("SetBillboardCallback", &onBillboard);
    caller.call<JswViewDisplayBillboard>("DisplayBillboard", page.c_str(), JswBool{1}, JswBool{0});
    for (const char* flag : {"SetShowProcessWindow", "SetShowSpecialMessages"}) {
        caller.call<JswViewFlag>(flag, 1U);
    }
    for (const char* flag : {"SetJswProgressMinimized", "SetReserveModeCart1",
                             "SetReserveModeCart2", "SetCompleteAPrintMode", "SetUpdateSoftware"}) {
        caller.call<JswViewFlag>(flag, 0U);
    }
    caller.call<JswViewSetSaveAppearanceCallback>("SetSaveAppearanceCallback", &onAppearance);
    caller.call<JswViewSetSaveValueCallback>("SetSaveValueCallback", &onValue);
    caller.call<JswViewSetUpdateSoftwareCallback>("SetUpdateSoftwareCallback", &onUpdateSoftware);
    caller.call<JswViewSavedValue>("SetSavedValue", "jswctl", "");
    caller.call<JswViewPlain>("ShowGui");
    WaitForSingleObject(windowClosed, job.shownMilliseconds);
    const auto pages = static_cast<std::uint32_t>(std::clamp(job.pages, 1, kMostPages));
    for (std::uint32_t number = 1; number <= pages; ++number) {
        caller.call<JswViewUpdateInfo>("UpdateInfo", number, 1U, pages - number, nullptr);
    }
    caller.call<JswViewPlain>("HideGui");
    caller.call<JswViewPlain>("Uninitialize");
}

void useLegacy(const Caller& caller, const TrialJob& job) {
    caller.ask<JswLegacyInitEx>("JSWInitEx", job.printer, job.printer.c_str());
    caller.call<JswLegacyTerminate>("JSWTerminate");
}

void useDevice(const Caller& caller) {
    JswDeviceClientId client = 0;
    caller.ask<JswDeviceLifetime>("PcsInitialize", "");
    caller.ask<JswDeviceGetClientId>("PcsGetClientId", "", &client, "");
    caller.ask<JswDeviceLifetime>("PcsUninitialize", "");
}

}  // namespace

void askForPages(const Caller& caller, const std::vector<std::string>& ids) {
    caller.call<JswCatalogInitialize>("Initialize", &returned::allocate);
    for (const std::string& id : ids) {
        caller.ask<JswCatalogText>("GetBillboardFileName", id, id.c_str());
    }
}

void goThrough(std::string_view kind, const Caller& caller, const TrialJob& job,
               const std::vector<std::string>& ids) {
    if (kind == "catalog") useCatalog(caller, ids);
    if (kind == "rules") useRules(caller, job);
    if (kind == "view") useView(caller, job, ids.empty() ? "" : ids.front());
    if (kind == "legacy") useLegacy(caller, job);
    if (kind == "device") useDevice(caller);
    if (const std::size_t left = returned::left(); left != 0) {
        caller.tell(trialline::fault(concat(left,
                                            " of the texts and lists that it allocated with the "
                                            "given function were never returned and leak")));
    }
}

}  // namespace jsw::ctl
