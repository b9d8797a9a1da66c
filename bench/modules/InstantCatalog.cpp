// A catalog module that answers at once. It has no billboards.

#include <jsw/catalog.h>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)

extern "C" {
void Initialize(JswAllocate) {
}
void UnInitialize() {
}
char** GetBillboardIds(const char*) {
    return nullptr;
}
char* GetBillboardFileName(const char*) {
    return nullptr;
}
char* GetBillboardType(const char*) {
    return nullptr;
}
char** GetBillboardActions(const char*) {
    return nullptr;
}
JswBool GetBillboardEnableNavigation(const char*) {
    return 0;
}
JswBool GetBillboardRestoreWindow(const char*) {
    return 0;
}
char* GetBillboardCarts(const char*) {
    return nullptr;
}
}
