/* A driver's program in C: one job of two pages, then the log of it. */
#include <jsw/jsw.h>
#include <stdio.h>
#include <stdlib.h>

static void onStatus(uint32_t status) {
    printf("status %u\n", (unsigned)status);
}

static void printLog(void) {
    char path[1024];
    char line[4096];
    FILE* log;
    snprintf(path, sizeof path, "%s\\prinJSW.log", getenv("ALLUSERSPROFILE"));
    log = fopen(path, "r");
    if (log == NULL) {
        printf("there is no log %s\n", path);
        return;
    }
    while (fgets(line, sizeof line, log) != NULL) fputs(line, stdout);
    fclose(log);
    remove(path);
}

int main(void) {
    InkInfo ink = JSW_INK_UNKNOWN;
    uint8_t started;
    ink.InkPercent[0] = 90;
    started = JSWInit("Office printer", "report.pdf", 0, 1, 2, 1, 1, &ink, 0, 2, onStatus);
    printf("JSWInit answered %u\n", (unsigned)started);
    JSWUpdateInfo(2, 1, 1, 0, 0, NULL);
    JSWTerminate();
    printLog();
    return started == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}
