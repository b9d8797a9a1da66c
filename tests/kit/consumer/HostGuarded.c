/* A driver that survives a module's crash, with the guard of the driver guide. */
#include <jsw/jsw.h>
#include <stdio.h>

int updateGuarded(uint32_t page, uint32_t copy, uint32_t seconds);

int main(void) {
    const InkInfo ink = JSW_INK_UNKNOWN;
    JSWInit("Office printer", "report.pdf", 0, 1, 2, 1, 1, &ink, 0, 2, NULL);
    printf("updateGuarded answered %d\n", updateGuarded(2, 1, 1));
    JSWTerminate();
    printf("JSWTerminate has returned\n");
    return 0;
}
