#include "tools/qldemo/StatusNames.h"

#include <jsw/jsw.h>

namespace jsw::qldemo {

std::string statusText(uint32_t status) {
    const std::string number = std::to_string(status);
    switch (status) {
        case JSW_STATUS_GUI_CLOSED:
            return number + " JSW_STATUS_GUI_CLOSED (the user closed the window)";
        case JSW_STATUS_JOB_CLOSED:
            return number + " JSW_STATUS_JOB_CLOSED (the job was closed)";
        case JSW_STATUS_JOB_CANCELLED:
            return number + " JSW_STATUS_JOB_CANCELLED (the user asked to cancel the job)";
        default:
            return number + " (a code of the window's own)";
    }
}

}  // namespace jsw::qldemo
