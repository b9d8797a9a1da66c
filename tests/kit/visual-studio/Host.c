/* A driver without a C library: one job, whose start its exit code reports. */
#include <jsw/catalog.h>
#include <jsw/device.h>
#include <jsw/jsw.h>
#include <jsw/legacy.h>
#include <jsw/product_lines.h>
#include <jsw/rules.h>
#include <jsw/view.h>

__declspec(dllimport) void ExitProcess(unsigned code);

static InkInfo ink;

void start(void) {
    ink.InkPercent[0] = 90;
    const uint8_t started = JSWInit("Office printer", "report.pdf", 0, 1, 2, 1, 1, &ink, 0, 2, NULL);
    JSWUpdateInfo(2, 1, 1, 0, 0, NULL);
    JSWTerminate();
    ExitProcess(started == 1 ? 21 : 1);
}
