// A catalog with the fault in JSWCTL_FAULT. It has only what the trial needs for it.

#include "tests/support/Raise.h"
#include <jsw/catalog.h>

#include <windows.h>

#include <cstring>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)

static JswAllocate allocateText;

void Initialize(JswAllocate allocate) {
    allocateText = allocate;
}

void UnInitialize() {
}

char* GetBillboardFileName(const char*) {
    char fault[16] = {};
    GetEnvironmentVariableA("JSWCTL_FAULT", fault, sizeof fault);
    static char literal[] = "page.jbb";
    if (std::strcmp(fault, "literal") == 0) return literal;
    if (std::strcmp(fault, "leak") == 0) allocateText(100);
    if (std::strcmp(fault, "loop") == 0) {
        CreateMutexA(nullptr, FALSE, "jswctl-test-loop");  // exists as long as this process
        for (volatile bool on = true; on;) Sleep(1);
    }
    if (std::strcmp(fault, "crash") == 0) jsw::test::fault();
    return static_cast<char*>(std::memcpy(allocateText(sizeof literal), literal, sizeof literal));
}
