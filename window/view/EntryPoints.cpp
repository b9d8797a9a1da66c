/**
 * The module's entry points. They store their arguments in the current job's state and return; the
 * window's thread shows them.
 */
#include "common/Encoding.h"
#include "window/view/ViewState.h"
#include "window/view/WindowThread.h"
#include <jsw/view.h>

#include <atomic>
#include <memory>
#include <string>

JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_VIEW_REQUIRE_ENTRY_POINTS

namespace {

using namespace jsw::window;

/** The job between Initialize and Uninitialize; null outside. */
std::atomic<std::shared_ptr<ViewState>> currentJob;

/** Unchanged, in the ANSI code page. */
std::string ansiOf(const char* text) {
    return text ? text : "";
}

std::string textOf(const char* text) {
    return jsw::common::utf8FromAnsi(ansiOf(text));
}

/** Runs an action on the current job, if there is one. Catches every exception. */
template <typename Action>
void withJob(Action&& action) noexcept {
    try {
        if (const auto job = currentJob.load()) action(job);
    } catch (...) {
        // Out of memory: the window misses this update.
    }
}

template <typename Change>
void changeJob(Change&& change) noexcept {
    withJob([&](const auto& job) { job->change(change); });
}

template <typename Callback>
void setCallback(Callback HostCallbacks::*member, Callback callback) noexcept {
    withJob([&](const auto& job) { job->setCallback(member, callback); });
}

void endJob(const std::shared_ptr<ViewState>& job) {
    if (!job) return;
    job->close();
    job->waitUntilClosed();
}

}  // namespace

void Initialize(void) {
    try {
        endJob(currentJob.exchange(std::make_shared<ViewState>()));
    } catch (...) {
        // Out of memory: the job has no window.
    }
}

void Uninitialize(void) {
    try {
        endJob(currentJob.exchange(nullptr));
    } catch (...) {
        // Out of memory while the window's place was saved.
    }
}

void SetDataPath(const char* text) {
    changeJob([text](JobData& data) { data.dataPath = ansiOf(text); });
}

void SetJobName(const char* text) {
    changeJob([text](JobData& data) { data.jobName = textOf(text); });
}

void SetPrinterFriendlyName(const char* text) {
    changeJob([text](JobData& data) { data.printerName = textOf(text); });
}

void SetCurrentPage(int32_t value) {
    changeJob([value](JobData& data) { data.progress.page = value; });
}

void SetTotalPages(int32_t value) {
    changeJob([value](JobData& data) { data.progress.totalPages = value; });
}

void SetShowPageInfo(JswBool showPageInfo) {
    changeJob([showPageInfo](JobData& data) { data.progress.showPages = showPageInfo != 0; });
}

void SetCurrentCopy(int32_t value) {
    changeJob([value](JobData& data) { data.progress.copy = value; });
}

void SetTotalCopies(int32_t value) {
    changeJob([value](JobData& data) { data.progress.totalCopies = value; });
}

void SetInkInfo(const InkInfo* inkInfo) {
    changeJob([inkInfo](JobData& data) {
        data.inkTold = true;
        data.inkPercents = JobData::noInkLevels();
        if (inkInfo) data.partNumbers = {inkInfo->iCart1PartNum, inkInfo->iCart2PartNum};
        for (std::size_t i = 0; inkInfo && i < data.inkPercents.size(); ++i) {
            data.inkPercents[i] = inkInfo->InkPercent[i];
        }
    });
}

void DisplayBillboard(const char* billboard, JswBool enableBillboardNavigation,
                      JswBool restoreWindow) {
    changeJob([=](JobData& data) {
        data.billboard = ansiOf(billboard);
        data.navigation = enableBillboardNavigation != 0;
        data.restoreWanted = data.restoreWanted || restoreWindow != 0;
        ++data.billboardSerial;
    });
}

void ShowGui(void) {
    withJob([](const auto& job) {
        if (job->show()) startWindowThread(job);
    });
}

void HideGui(void) {
    withJob([](const auto& job) { job->hide(); });
}

void UpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, void* /*data*/) {
    changeJob([=](JobData& data) {
        data.progress.page = value1;
        data.progress.copy = value2;
        data.progress.secondsRemaining = value3;
    });
}

void SetJswProgressMinimized(uint32_t flag) {
    changeJob([flag](JobData& data) { data.startMinimized = flag != 0; });
}

void SetShowSpecialMessages(uint32_t flag) {
    changeJob([flag](JobData& data) { data.showSpecialMessages = flag != 0; });
}

void SetReserveModeCart1(uint32_t flag) {
    changeJob([flag](JobData& data) { data.reserveMode[0] = flag != 0; });
}

void SetReserveModeCart2(uint32_t flag) {
    changeJob([flag](JobData& data) { data.reserveMode[1] = flag != 0; });
}

void SetUpdateSoftware(uint32_t flag) {
    changeJob([flag](JobData& data) { data.updateSoftware = flag != 0; });
}

void SetSavedValue(const char* valueName, const char* value) {
    changeJob([=](JobData& data) {
        const std::string name = ansiOf(valueName);
        data.savedPlace.take(name, ansiOf(value));
        if (name == "ClosingExplained") data.closingExplained = ansiOf(value) == "1";
    });
}

void SetJswCallback(JswViewEventCallback callback) {
    setCallback(&HostCallbacks::event, callback);
}

void SetBillboardCallback(JswViewBillboardCallback callback) {
    setCallback(&HostCallbacks::billboard, callback);
}

void SetSaveAppearanceCallback(JswViewSaveAppearanceCallback callback) {
    setCallback(&HostCallbacks::saveAppearance, callback);
}

void SetSaveValueCallback(JswViewSaveValueCallback callback) {
    setCallback(&HostCallbacks::saveValue, callback);
}

void SetUpdateSoftwareCallback(JswViewUpdateSoftwareCallback callback) {
    setCallback(&HostCallbacks::updateSoftware, callback);
}

// This window does not need the following. A module may omit such entry points; they are here for
// completeness.

void SetJobType(int32_t /*value*/) {
}

void SetPortType(int32_t /*value*/) {
}

void SetShowProcessWindow(uint32_t /*flag*/) {
}

void SetCompleteAPrintMode(uint32_t /*flag*/) {
}
