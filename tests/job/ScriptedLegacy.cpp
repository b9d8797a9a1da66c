// An older job window module that records its calls and lets a test act inside a prompt.

#include "PublicLib/text/Text.h"
#include "tests/job/Script.h"

JSW_LEGACY_ENTRY_POINTS(JSW_MODULE_DECLARE)

using jsw::concat;
using jsw::test::script;

extern "C" {

uint32_t JSWInitEx(const char* friendlyName) {
    script().legacy.add(concat("JSWInitEx(", friendlyName, ")"));
    return script().legacyStarts ? 1 : 0;
}

void JSWTerminate() {
    script().legacy.add("JSWTerminate()");
}

void JSWDisplayPrompt(int32_t promptType, int32_t totalPages) {
    script().legacy.add(concat("JSWDisplayPrompt(", promptType, ",", totalPages, ")"));
    if (script().onPrompt) script().onPrompt();
}

void JSWPostDlgMsg(void* message) {
    script().legacy.add(concat("JSWPostDlgMsg(", reinterpret_cast<std::uintptr_t>(message), ")"));
}
}
