// From a billboard id to something on screen: see Controller.h.

#include "PublicLib/logging/MethodTrace.h"
#include "PublicLib/text/Text.h"
#include "jsw/Controller.h"
#include "jsw/History.h"
#include "jsw/modules/Catalog.h"
#include "jsw/settings/Settings.h"

#include <windows.h>

#include <cerrno>
#include <cstring>
#include <io.h>

namespace jsw {

void Controller::changeBillboard(const std::string& bbId) {
    MethodTrace trace(component::kJsw, "Controller::changeBillboard: ");
    trace.add("bbId ='", bbId, "'");
    if (bbId.empty()) {
        logLine(component::kJsw, kLogError, "ERROR - bbId is empty string.");
        return;
    }
    const auto data = getBillboardData(bbId);
    if (!data || data->fileName.empty()) {
        trace.add("no filename for bbId='", bbId, "'");
        return;
    }
    logLine(component::kJsw, kLogRules, "Controller::changeBillboard: Billboard id=", bbId,
            ", fileName=", data->fileName, ".");
    if (!equalsIgnoringCase(data->type, "ink_status")) texts_.set(&JobText::currentId, bbId);
    texts_.set(&JobText::displayedId, bbId);
    view_->displayBillboard(data->fileName, data->navigate, data->restore);
}

bool Controller::isBillboardIdValid(const std::string& bbId) {
    MethodTrace trace(component::kJsw, "Controller::isBillboardIdValid: bbId=", bbId, ".");
    const auto refuse = [&](const auto&... why) {
        trace.add(why...);
        return trace.answering(false);
    };
    // Determined at each call: an update may have moved the data while the job runs.
    const std::string dataPath = determineDataPath();
    const std::string fileName = Catalog::instance()->getBillboardFileName(bbId);
    if (fileName.empty()) return refuse("Catalog has no filename for bbId='", bbId, "'");
    if (dataPath.empty())  // the path would name the root of a drive
        return refuse("No data folder to look for bbId='", bbId, "' in");
    const std::string path = concat(dataPath, "\\Scripts\\", fileName);
    constexpr int kReadAccess = 4;
    if (_access(path.c_str(), kReadAccess) != 0)
        return refuse("WARNING: ", std::strerror(errno), ", pathBillboardFile='", path, "'");
    trace.add("pathBillboardFile='", path, "'");
    return trace.answering(true);
}

std::optional<BillboardData> Controller::getBillboardData(const std::string& bbId) {
    MethodTrace trace(component::kJsw, "Controller::getBillboardData: bbId=", bbId, ".");
    if (!isBillboardIdValid(bbId)) {
        trace.add("bbId is not valid, bbId=", bbId, "'");
        return std::nullopt;
    }
    const auto catalog = Catalog::instance();
    BillboardData data;
    data.fileName = catalog->getBillboardFileName(bbId);
    data.type = catalog->getBillboardType(bbId);
    if (History::instance()->size() > 0) data.navigate = catalog->getEnableNavigation(bbId);
    data.restore = catalog->getRestoreWindow(bbId);
    trace.add("fileName=", data.fileName, ",type=", data.type, ",navigate=", data.navigate,
              ",restore=", data.restore, ".");
    return data;
}

BillboardData Controller::getDefaultBillboardData() {
    MethodTrace trace(component::kJsw, "Controller::getDefaultBillboardData: ");
    std::string fileName;
    Settings().read(setting::kDefaultBillboardFile, fileName);
    BillboardData data =
        fileName.empty() ? lookUpDefaultBillboard() : readDefaultBillboard(fileName);
    trace.add("fileName=", data.fileName, ",navigate=", data.navigate, ",restore=", data.restore,
              ".");
    return data;
}

/// The first run, or the first one after an update.
BillboardData Controller::lookUpDefaultBillboard() {
    History::instance()->clear();
    BillboardData data = getBillboardData(defaultBillboardId_).value_or(BillboardData{});
    if (data.fileName.empty()) return data;
    // The catalog's answer is stored; the window gets "no navigation", because the history is
    // empty.
    const bool navigate = Catalog::instance()->getEnableNavigation(defaultBillboardId_);
    const Settings settings;
    const auto keep = [&settings](const auto& place, const auto& value) {
        if (settings.write(place, value)) return;
        logLine(component::kJsw, kLogError, "ERROR - Unable to write the registry for key='",
                place.key, "' and value name='", place.name, "', error=", GetLastError(), ".");
    };
    keep(setting::kDefaultBillboardFile, data.fileName);
    keep(setting::kDefaultBillboardRestore, data.restore ? 1U : 0U);
    keep(setting::kDefaultBillboardNavigate, navigate ? 1U : 0U);
    return data;
}

BillboardData Controller::readDefaultBillboard(const std::string& fileName) {
    BillboardData data;
    data.fileName = fileName;
    const Settings settings;
    const auto isSet = [&](const setting::Number& number) {
        std::uint32_t value = 0;
        settings.read(number, value);
        return value != 0;
    };
    if (History::instance()->size() > 0) data.navigate = isSet(setting::kDefaultBillboardNavigate);
    data.restore = isSet(setting::kDefaultBillboardRestore);
    return data;
}

}  // namespace jsw
