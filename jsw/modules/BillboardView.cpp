#include "jsw/modules/BillboardView.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/locks/Singleton.h"
#include "jsw/modules/InkInfoText.h"
#include "jsw/modules/ViewEntryPoints.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"

#include <map>
#include <mutex>
#include <vector>

namespace jsw {

namespace {

constexpr auto kUnknownPages = static_cast<std::uint32_t>(-1);
constexpr auto kUncountedPages = static_cast<std::uint32_t>(-2);

NeverDestroyed<Singleton<BillboardView>> singleton;

/// The view modules that this process has loaded, by file name. An update may add another one; none
/// is ever freed.
class ViewModules {
  public:
    /// The module of the file; null if it cannot be loaded.
    ModuleDll* load(const std::string& fileName, MethodTrace& trace) {
        const std::lock_guard lock(lock_);
        std::unique_ptr<ModuleDll>& module = modules_[fileName];
        if (!module) module = loadModule(fileName, component::kJsw, trace);
        return module.get();
    }

  private:
    CriticalSection lock_;
    std::map<std::string, std::unique_ptr<ModuleDll>> modules_;
};
NeverDestroyed<ViewModules> viewModules;

}  // namespace

std::shared_ptr<BillboardView> BillboardView::instance() {
    return singleton->instance([] { return std::make_shared<BillboardView>(); });
}

void BillboardView::destroy() {
    MethodTrace trace(component::kJsw, "BillboardView::destroy: ");
    singleton->destroy([&] { trace.add("destroying BillboardView."); });
}

BillboardView::BillboardView() {
    MethodTrace trace(component::kJsw, "BillboardView::BillboardView: ");
    const std::string fileName = moduleFilePath(setting::kViewModule);
    trace.add("Loading view DLL, filename=", fileName, ".");
    dll_ = viewModules->load(fileName, trace);
}

BillboardView::~BillboardView() {
    MethodTrace trace(component::kJsw, "BillboardView::~BillboardView: ");
}

template <class Entry, class... Args>
void BillboardView::forward(const Entry& entry, const Args&... args) const {
    using Function = typename Entry::FunctionType;
    MethodTrace trace(component::kJsw, entry.tag);
    lookUpAndCall<Function>(dll_, component::kJsw, entry.name, trace, args...);
}

/// Forwards with a ">>> " line before and a "<<< " line after the call.
template <class Function, class... Args>
void BillboardView::forwardMarked(const char* tag, const char* name, MethodTrace& trace,
                                  const Args&... args) const {
    logLine(component::kJsw, kLogModuleCall, ">>> ", tag);
    auto* function = findEntry<Function>(dll_, name, trace);
    if (function == nullptr) return;
    callEntry(component::kJsw, name, function, args...);
    logLine(component::kJsw, kLogModuleCall, "<<< ", tag);
}

bool BillboardView::jswInit(const Job& job, const FirstBillboard& first) {
    MethodTrace trace(component::kJsw, "BillboardView::jswInit: ");
    logLine(component::kJsw, kLogModuleCall, ">>> BillboardView::jswInit bringing up gui");
    trace.add("Params: friendlyName=", job.friendlyName, ", jobname=", job.jobName,
              ", jobType=", asSigned(job.jobType), ", currentPage=", asSigned(job.currentPage),
              ", totalPages=", asSigned(job.totalPages),
              ", currentCopy=", asSigned(job.currentCopy),
              ", totalCopies=", asSigned(job.totalCopies), ", portType=", asSigned(job.portType),
              ", dataPath=", first.dataPath, ", defaultBB=", first.defaultBillboard,
              ", navigate=", first.navigate, ", restore=", first.restore, ".");
    if (isLogEnabled(component::kJsw, kLogDetail)) logInkInfo(job.ink);
    if (dll_ == nullptr) {
        trace.add("ERROR - The GUI DLL is not loaded");
        trace.setResult(0);
        return false;
    }
    setUp(job, first);
    if (showProcessWindow_) {
        trace.add("Showing GUI");
        showGui();
        trace.setResult(1);
    } else {
        trace.add("guiShowProcessWindow indicates GUI should NOT be shown!");
    }
    logLine(component::kJsw, kLogModuleCall, "<<< BillboardView::jswInit bringing up gui");
    return true;
}

void BillboardView::logInkInfo(const InkInfo& inkInfo) const {
    logLine(component::kJsw, kLogDetail, "inkinfo:");
    for (const std::string& line : inkInfoLines(inkInfo))
        logLine(component::kJsw, kLogDetail, line);
}

/// The window is complete before it is first shown.
void BillboardView::setUp(const Job& job, const FirstBillboard& first) {
    forward(view::kInitialize);
    isUp_ = true;
    setDataPath(first.dataPath);
    forward(view::kSetJobName, job.jobName.c_str());
    forward(view::kSetPrinterFriendlyName, job.friendlyName.c_str());
    forward(view::kSetJobType, asSigned(job.jobType));
    forward(view::kSetCurrentPage, asSigned(job.currentPage));
    forward(view::kSetTotalPages, asSigned(job.totalPages));
    setShowPageInfo(job.totalPages != kUnknownPages && job.totalPages != kUncountedPages);
    forward(view::kSetCurrentCopy, asSigned(job.currentCopy));
    forward(view::kSetTotalCopies, asSigned(job.totalCopies));
    forward(view::kSetInkInfo, job.inkInfo);
    forward(view::kSetPortType, asSigned(job.portType));
    forward(view::kSetJswCallback, &jswCallback);
    forward(view::kSetBillboardCallback, &billboardCallback);
    displayBillboard(first.defaultBillboard, first.navigate, first.restore);
    setShowProcessWindow();
    setJswProgressMinimized();
    setShowSpecialMessages();
    setReserveModeCart1();
    setReserveModeCart2();
    setCompleteAPrint();
    setUpdateSoftware();
    forward(view::kSetSaveAppearanceCallback, &saveAppearanceCallback);
    forward(view::kSetSaveValueCallback, &saveValueCallback);
    forward(view::kSetUpdateSoftwareCallback, &saveUpdateSoftwareCallback);
    setSavedValues();
}

void BillboardView::jswTerminate() {
    MethodTrace trace(component::kJsw, "BillboardView::jswTerminate: ");
    if (dll_ == nullptr) {
        trace.add("ERROR - The GUI DLL is not loaded.");
        return;
    }
    hideGui();
    isUp_ = false;
    forward(view::kUninitialize);
}

void BillboardView::jswUpdateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                                  void* data) {
    MethodTrace silent;  // called for every page: never logs
    if (dll_ == nullptr) return;
    lookUpAndCall<JswViewUpdateInfo>(dll_, component::kJsw, "UpdateInfo", silent, value1, value2,
                                     value3, data);
}

void BillboardView::displayBillboard(const std::string& billboard, bool enableBillboardNavigation,
                                     bool restoreWindow) {
    constexpr char kTag[] = "BillboardView::displayBillboard: ";
    MethodTrace trace(component::kJsw, kTag);
    trace.add("billboard= '", billboard, "' enableBillboardNavigation=", enableBillboardNavigation,
              " restoreWindow=", restoreWindow);
    if (!isUp_) return;  // for a click that outlives its job
    forwardMarked<JswViewDisplayBillboard>(kTag, "DisplayBillboard", trace, billboard.c_str(),
                                           JswBool{enableBillboardNavigation},
                                           JswBool{restoreWindow});
}

void BillboardView::showGui() {
    constexpr char kTag[] = "BillboardView::showGui: ";
    MethodTrace trace(component::kJsw, kTag);
    forwardMarked<JswViewPlain>(kTag, "ShowGui", trace);
}

void BillboardView::hideGui() {
    constexpr char kTag[] = "BillboardView::hideGui: ";
    MethodTrace trace(component::kJsw, kTag);
    forwardMarked<JswViewPlain>(kTag, "HideGui", trace);
}

void BillboardView::setDataPath(const std::string& dataPath) const {
    // The tag: see "Fixed interfaces" in docs/architecture.md.
    MethodTrace trace(component::kJsw, "BillboardView::setGuiSetting: ");
    trace.add("dataPath='", dataPath, "'.");
    if (dll_ == nullptr) {
        trace.add("ERROR - The GUI DLL is not loaded");
        return;
    }
    lookUpAndCall<JswViewText>(dll_, component::kJsw, "SetDataPath", trace, dataPath.c_str());
}

void BillboardView::setShowPageInfo(bool showPageInfo) const {
    MethodTrace trace(component::kJsw, "BillboardView::setShowPageInfo: showPageInfo=(",
                      showPageInfo, ")");
    lookUpAndCall<JswViewShowPageInfo>(dll_, component::kJsw, "SetShowPageInfo", trace,
                                       JswBool{showPageInfo});
}

bool BillboardView::readFlag(const setting::Number& number) const {
    std::uint32_t value = number.defaultValue;
    OfnSettings(ofnPath_).read(number, value);
    return value != 0;
}

void BillboardView::setGuiSetting(const char* function, const setting::Number& number,
                                  std::uint32_t defaultValue) const {
    MethodTrace trace(component::kJsw, "BillboardView::setGuiSetting: ");
    trace.add("function='", function, "' ofnPath='", number.key, "' valueName='", number.name,
              "' defaultValue=", asSigned(defaultValue));
    auto* entry = findEntry<JswViewFlag>(dll_, function, trace);
    if (entry == nullptr) return;
    std::uint32_t value = defaultValue;
    OfnSettings(ofnPath_).read(number, value);
    trace.add("value =", value);
    callEntry(component::kJsw, function, entry, value);
}

void BillboardView::setShowProcessWindow() {
    MethodTrace trace(component::kJsw, "BillboardView::setShowProcessWindow: ");
    showProcessWindow_ = readFlag(setting::kShowProcessWindow);
    setGuiSetting("SetShowProcessWindow", setting::kShowProcessWindow, showProcessWindow_);
}

void BillboardView::setJswProgressMinimized() const {
    MethodTrace trace(component::kJsw, "BillboardView::setJswProgressMinimized: ");
    setGuiSetting("SetJswProgressMinimized", setting::kJobProgressMinimized, 0);
}

void BillboardView::setShowSpecialMessages() {
    MethodTrace trace(component::kJsw, "BillboardView::setShowSpecialMessages: ");
    showSpecialMessages_ = readFlag(setting::kShowSpecialMessages);
    // Unlike the process window's, this default is always "on".
    setGuiSetting("SetShowSpecialMessages", setting::kShowSpecialMessages, 1);
}

void BillboardView::setReserveModeCart1() const {
    MethodTrace trace(component::kJsw, "BillboardView::setReserveModeCart1: ");
    setGuiSetting("SetReserveModeCart1", setting::kCart1ReserveTankFlag, 0);
}

void BillboardView::setReserveModeCart2() const {
    MethodTrace trace(component::kJsw, "BillboardView::setReserveModeCart2: ");
    setGuiSetting("SetReserveModeCart2", setting::kCart2ReserveTankFlag, 0);
}

void BillboardView::setCompleteAPrint() const {
    MethodTrace trace(component::kJsw, "BillboardView::setCompleteAPrint: ");
    setGuiSetting("SetCompleteAPrintMode", setting::kCompleteToPrint, 0);
}

void BillboardView::setUpdateSoftware() const {
    MethodTrace trace(component::kJsw, "BillboardView::setUpdateSoftware: ");
    constexpr char kName[] = "SetUpdateSoftware";
    auto* entry = findEntry<JswViewFlag>(dll_, kName, trace);
    if (entry == nullptr) return;
    std::uint32_t updateSoftware = 0;
    const setting::Number& check = setting::kCheckForUpdates;
    if (Settings().read(check, updateSoftware) != Read::found) {
        trace.add("Unable to read the registry for key='", check.key, "' and value name='",
                  check.name, "'.");
    }
    trace.add("updateSoftware=", updateSoftware);
    callEntry(component::kJsw, kName, entry, updateSoftware);
}

void BillboardView::setSavedValues() const {
    MethodTrace trace(component::kJsw, "BillboardView::setSavedValues: ");
    constexpr char kName[] = "SetSavedValue";
    auto* entry = findEntry<JswViewSavedValue>(dll_, kName, trace);
    if (entry == nullptr) return;
    const Settings settings;
    std::vector<std::string> names;
    if (!settings.getValueNames(setting::kGuiKey, names)) {
        trace.add("No saved values for GUI under key=", setting::kGuiKey, ".");
        return;
    }
    trace.add("Setting saved values.");
    for (const std::string& name : names) {
        std::string value;
        if (settings.getValue(setting::kGuiKey, name, value)) {
            trace.add("ValueName=", name, ". Value=", value, ".");
            callEntry(component::kJsw, kName, entry, name.c_str(), value.c_str());
        } else {
            trace.add("ERROR - unable to read value for valueName=", name, ".");
        }
    }
}

}  // namespace jsw
