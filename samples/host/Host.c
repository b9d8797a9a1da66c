/*
 * A minimal driver: prints a job of three pages, one per second, and stops if the user cancels it.
 * Its settings file, qlhojsw.loc, is beside the program.
 */
#include <windows.h>

#include <jsw/jsw.h>
#include <stdio.h>

static volatile LONG cancelled;

/* Called on the thread on which the window reports. */
static void onStatus(uint32_t status) {
    if (status == JSW_STATUS_JOB_CANCELLED) InterlockedExchange(&cancelled, 1);
}

int main(void) {
    enum { PAGES = 3 };
    InkInfo ink = JSW_INK_UNKNOWN; /* a level of 0 is an empty cartridge */
    uint32_t page;
    ink.InkPercent[0] = 90;
    ink.InkPercent[1] = 15;

    if (!JSWInit("Office printer", "report.pdf", 0, 1, PAGES, 1, 1, &ink, 0, PAGES, onStatus)) {
        printf("There is no window; the log says why. The job prints all the same.\n");
    }
    for (page = 1; page <= PAGES && !cancelled; ++page) {
        JSWUpdateInfo(page, 1, PAGES - page, 0, 0, NULL); /* page, copy, seconds left */
        printf("Printing page %u\n", (unsigned)page);
        Sleep(1000);
    }
    printf(cancelled ? "Cancelled.\n" : "Done.\n");
    JSWTerminate();
    return 0;
}
