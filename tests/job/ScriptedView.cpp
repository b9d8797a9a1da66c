// A view module that records its calls and lets a test call back.

#include "PublicLib/text/Text.h"
#include "tests/job/Script.h"

JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)

namespace {

using jsw::concat;
using jsw::test::script;

template <class... Parts>
void record(const Parts&... parts) {
    const std::string call = concat(parts...);
    script().view.add(call);
    if (script().onViewCall) script().onViewCall(call);
}

}  // namespace

#define RECORD_PLAIN(name)  \
    void name() {           \
        record(#name "()"); \
    }
#define RECORD_ONE(name, type)         \
    void name(type value) {            \
        record(#name "(", value, ")"); \
    }

extern "C" {
RECORD_PLAIN(Initialize)
RECORD_PLAIN(Uninitialize)
RECORD_PLAIN(ShowGui)
RECORD_PLAIN(HideGui)
RECORD_ONE(SetDataPath, const char*)
RECORD_ONE(SetJobName, const char*)
RECORD_ONE(SetPrinterFriendlyName, const char*)
RECORD_ONE(SetJobType, int32_t)
RECORD_ONE(SetCurrentPage, int32_t)
RECORD_ONE(SetTotalPages, int32_t)
RECORD_ONE(SetCurrentCopy, int32_t)
RECORD_ONE(SetTotalCopies, int32_t)
RECORD_ONE(SetPortType, int32_t)
RECORD_ONE(SetShowProcessWindow, uint32_t)
RECORD_ONE(SetJswProgressMinimized, uint32_t)
RECORD_ONE(SetShowSpecialMessages, uint32_t)
RECORD_ONE(SetReserveModeCart1, uint32_t)
RECORD_ONE(SetReserveModeCart2, uint32_t)
RECORD_ONE(SetCompleteAPrintMode, uint32_t)
RECORD_ONE(SetUpdateSoftware, uint32_t)

void SetShowPageInfo(JswBool showPageInfo) {
    record("SetShowPageInfo(", showPageInfo != 0, ")");
}

void SetInkInfo(const InkInfo* inkInfo) {
    record("SetInkInfo()");
    script().inkInfo = *inkInfo;
}

void SetJswCallback(JswViewEventCallback callback) {
    script().reportEvent = callback;
    record("SetJswCallback()");
}

void SetBillboardCallback(JswViewBillboardCallback callback) {
    script().clickBillboard = callback;
    record("SetBillboardCallback()");
}

void SetSaveAppearanceCallback(JswViewSaveAppearanceCallback callback) {
    script().saveAppearance = callback;
    record("SetSaveAppearanceCallback()");
}

void SetSaveValueCallback(JswViewSaveValueCallback callback) {
    script().saveValue = callback;
    record("SetSaveValueCallback()");
}

void SetUpdateSoftwareCallback(JswViewUpdateSoftwareCallback callback) {
    script().saveUpdateSoftware = callback;
    record("SetUpdateSoftwareCallback()");
}

void SetSavedValue(const char* valueName, const char* value) {
    record("SetSavedValue(", valueName, ",", value, ")");
}

void UpdateInfo(uint32_t value1, uint32_t value2, uint32_t value3, void* data) {
    record("UpdateInfo(", value1, ",", value2, ",", value3, ",",
           reinterpret_cast<std::uintptr_t>(data), ")");
}

void DisplayBillboard(const char* billboard, JswBool enableBillboardNavigation,
                      JswBool restoreWindow) {
    record("DisplayBillboard(", billboard, ",", enableBillboardNavigation != 0, ",",
           restoreWindow != 0, ")");
}
}
