/* The public headers are plain C: this file only has to compile. */
#include "jsw/catalog.h"
#include "jsw/device.h"
#include "jsw/jsw.h"
#include "jsw/legacy.h"
#include "jsw/rules.h"
#include "jsw/view.h"

JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)

int jswHeadersInC(void) {
    return (int)sizeof(InkInfo);
}
