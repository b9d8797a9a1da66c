// A view module that answers at once.

#include <jsw/view.h>

JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)

extern "C" {
void Initialize() {
}
void Uninitialize() {
}
void SetDataPath(const char*) {
}
void SetJobName(const char*) {
}
void SetPrinterFriendlyName(const char*) {
}
void SetJobType(int32_t) {
}
void SetCurrentPage(int32_t) {
}
void SetTotalPages(int32_t) {
}
void SetShowPageInfo(JswBool) {
}
void SetCurrentCopy(int32_t) {
}
void SetTotalCopies(int32_t) {
}
void SetInkInfo(const InkInfo*) {
}
void SetPortType(int32_t) {
}
void SetJswCallback(JswViewEventCallback) {
}
void SetBillboardCallback(JswViewBillboardCallback) {
}
void DisplayBillboard(const char*, JswBool, JswBool) {
}
void ShowGui() {
}
void HideGui() {
}
void UpdateInfo(uint32_t, uint32_t, uint32_t, void*) {
}
void SetShowProcessWindow(uint32_t) {
}
void SetJswProgressMinimized(uint32_t) {
}
void SetShowSpecialMessages(uint32_t) {
}
void SetReserveModeCart1(uint32_t) {
}
void SetReserveModeCart2(uint32_t) {
}
void SetCompleteAPrintMode(uint32_t) {
}
void SetUpdateSoftware(uint32_t) {
}
void SetSaveAppearanceCallback(JswViewSaveAppearanceCallback) {
}
void SetSaveValueCallback(JswViewSaveValueCallback) {
}
void SetUpdateSoftwareCallback(JswViewUpdateSoftwareCallback) {
}
void SetSavedValue(const char*, const char*) {
}
}
