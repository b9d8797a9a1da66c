/* The smallest catalog: one page, with which every job starts. */
#include <jsw/catalog.h>
#include <string.h>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_CATALOG_REQUIRE_ENTRY_POINTS

static JswAllocate allocateText;

static char* returned(const char* text) {
    const size_t size = strlen(text) + 1;
    char* copy = allocateText((int32_t)size);
    return copy == NULL ? NULL : memcpy(copy, text, size);
}

static int isDefault(const char* id) {
    return strcmp(id, "DEFAULT") == 0;
}

void Initialize(JswAllocate allocate) {
    allocateText = allocate;
}

void UnInitialize(void) {
}

char** GetBillboardIds(const char* id) {
    (void)id;
    return NULL;
}

char* GetBillboardFileName(const char* billboardId) {
    return isDefault(billboardId) ? returned("hello.jbb") : NULL;
}

char* GetBillboardType(const char* billboardId) {
    return isDefault(billboardId) ? returned("standard") : NULL;
}

char** GetBillboardActions(const char* id) {
    (void)id;
    return NULL;
}

JswBool GetBillboardEnableNavigation(const char* billboardId) {
    (void)billboardId;
    return 0;
}

JswBool GetBillboardRestoreWindow(const char* billboardId) {
    (void)billboardId;
    return 0;
}

char* GetBillboardCarts(const char* billboardId) {
    (void)billboardId;
    return NULL;
}
