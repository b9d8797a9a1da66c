// A catalog that crashes at the first question.

#include <jsw/catalog.h>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)

void Initialize(JswAllocate) {
}

void UnInitialize() {
}

char* GetBillboardFileName(const char*) {
    volatile char* nowhere = nullptr;
    return const_cast<char*>(nowhere + *nowhere);
}

char* GetBillboardType(const char*) {
    return nullptr;
}

char* GetBillboardCarts(const char*) {
    return nullptr;
}

char** GetBillboardIds(const char*) {
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
