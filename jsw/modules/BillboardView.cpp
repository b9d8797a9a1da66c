#include "jsw/modules/BillboardView.h"

#include "PublicLib/NeverDestroyed.h"
#include "PublicLib/locks/Singleton.h"
#include "jsw/modules/InkInfoText.h"
#include "jsw/settings/OfnSettings.h"
#include "jsw/settings/Settings.h"

#include <cctype>
#include <map>
#include <mutex>
#include <vector>

namespace jsw {

namespace {

constexpr auto kUnknownPages = static_cast<std::uint32_t>(-1);
constexpr auto kUncountedPages = static_cast<std::uint32_t>(-2);

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

/// An option of the window that a job sets.
struct Appearance {
    const char* tag;
    const view::EntryPoint<JswViewFlag>& entry;
    const setting::Number& number;
};

constexpr Appearance kAppearance[] = {
    {"BillboardView::setShowProcessWindow: ", view::kSetShowProcessWindow,
     setting::kShowProcessWindow},
    {"BillboardView::setJswProgressMinimized: ", view::kSetJswProgressMinimized,
     setting::kJobProgressMinimized},
    {"BillboardView::setShowSpecialMessages: ", view::kSetShowSpecialMessages,
     setting::kShowSpecialMessages},
    {"BillboardView::setReserveModeCart1: ", view::kSetReserveModeCart1,
     setting::kCart1ReserveTankFlag},
    {"BillboardView::setReserveModeCart2: ", view::kSetReserveModeCart2,
     setting::kCart2ReserveTankFlag},
    {"BillboardView::setCompleteAPrint: ", view::kSetCompleteAPrintMode, setting::kCompleteToPrint},
};

}  // namespace

std::shared_ptr<BillboardView> BillboardView::instance() {
    return singleton<BillboardView>->instance([] { return std::make_shared<BillboardView>(); });
}

void BillboardView::destroy() {
    MethodTrace trace(component::kJsw, "BillboardView::destroy: ");
    singleton<BillboardView>->destroy([&] { trace.add("destroying BillboardView."); });
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

template <class Entry>
ModuleCall<typename Entry::Function> BillboardView::find(const Entry& entry,
                                                         MethodTrace& trace) const {
    return findEntry<typename Entry::Function>(dll_, component::kJsw, entry.name, trace);
}

template <class Entry, class... Args>
void BillboardView::forwardAs(const char* tag, const Entry& entry, const Args&... args) const {
    MethodTrace trace(component::kJsw, tag);
    find(entry, trace)(args...);
}

/// The trace has the name of the entry point, with a small letter in front.
template <class Entry, class... Args>
void BillboardView::forward(const Entry& entry, const Args&... args) const {
    const char initial[] = {static_cast<char>(std::tolower(*entry.name)), '\0'};
    MethodTrace trace(component::kJsw, "BillboardView::", initial, entry.name + 1, ": ");
    find(entry, trace)(args...);
}

/// Forwards with a ">>> " line before and a "<<< " line after the call.
template <class Entry, class... Args>
void BillboardView::forwardMarked(const char* tag, const Entry& entry, MethodTrace& trace,
                                  const Args&... args) const {
    logLine(component::kJsw, kLogModuleCall, ">>> ", tag);
    const auto call = find(entry, trace);
    if (!call) return;
    call(args...);
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
    const bool showPageInfo = job.totalPages != kUnknownPages && job.totalPages != kUncountedPages;
    forwardAs(showPageInfo ? "BillboardView::setShowPageInfo: showPageInfo=(true)"
                           : "BillboardView::setShowPageInfo: showPageInfo=(false)",
              view::kSetShowPageInfo, JswBool{showPageInfo});
    forward(view::kSetCurrentCopy, asSigned(job.currentCopy));
    forward(view::kSetTotalCopies, asSigned(job.totalCopies));
    forward(view::kSetInkInfo, job.inkInfo);
    forward(view::kSetPortType, asSigned(job.portType));
    forwardAs("BillboardView::setJSWCallback: ", view::kSetJswCallback, &jswCallback);
    forward(view::kSetBillboardCallback, &billboardCallback);
    displayBillboard(first.defaultBillboard, first.navigate, first.restore);
    setAppearance();
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
    find(view::kUpdateInfo, silent)(value1, value2, value3, data);
}

void BillboardView::displayBillboard(const std::string& billboard, bool enableBillboardNavigation,
                                     bool restoreWindow) {
    constexpr char kTag[] = "BillboardView::displayBillboard: ";
    MethodTrace trace(component::kJsw, kTag);
    trace.add("billboard= '", billboard, "' enableBillboardNavigation=", enableBillboardNavigation,
              " restoreWindow=", restoreWindow);
    if (!isUp_) return;  // for a click that outlives its job
    forwardMarked(kTag, view::kDisplayBillboard, trace, billboard.c_str(),
                  JswBool{enableBillboardNavigation}, JswBool{restoreWindow});
}

void BillboardView::showGui() {
    constexpr char kTag[] = "BillboardView::showGui: ";
    MethodTrace trace(component::kJsw, kTag);
    forwardMarked(kTag, view::kShowGui, trace);
}

void BillboardView::hideGui() {
    constexpr char kTag[] = "BillboardView::hideGui: ";
    MethodTrace trace(component::kJsw, kTag);
    forwardMarked(kTag, view::kHideGui, trace);
}

void BillboardView::setDataPath(const std::string& dataPath) const {
    // The tag: see "Fixed interfaces" in docs/architecture.md.
    MethodTrace trace(component::kJsw, "BillboardView::setGuiSetting: ");
    trace.add("dataPath='", dataPath, "'.");
    if (dll_ == nullptr) {
        trace.add("ERROR - The GUI DLL is not loaded");
        return;
    }
    find(view::kSetDataPath, trace)(dataPath.c_str());
}

bool BillboardView::readFlag(const setting::Number& number) const {
    std::uint32_t value = number.defaultValue;
    OfnSettings(ofnPath_).read(number, value);
    return value != 0;
}

void BillboardView::setGuiSetting(const view::EntryPoint<JswViewFlag>& entry,
                                  const setting::Number& number, std::uint32_t defaultValue) const {
    MethodTrace trace(component::kJsw, "BillboardView::setGuiSetting: ");
    trace.add("function='", entry.name, "' ofnPath='", number.key, "' valueName='", number.name,
              "' defaultValue=", asSigned(defaultValue));
    const auto call = find(entry, trace);
    if (!call) return;
    std::uint32_t value = defaultValue;
    OfnSettings(ofnPath_).read(number, value);
    trace.add("value =", value);
    call(value);
}

void BillboardView::setAppearance() {
    for (const Appearance& option : kAppearance) {
        MethodTrace trace(component::kJsw, option.tag);
        std::uint32_t defaultValue = option.number.defaultValue;
        if (&option.number == &setting::kShowProcessWindow)
            defaultValue = showProcessWindow_ = readFlag(option.number);
        if (&option.number == &setting::kShowSpecialMessages)
            showSpecialMessages_ = readFlag(option.number);
        setGuiSetting(option.entry, option.number, defaultValue);
    }
}

void BillboardView::setUpdateSoftware() const {
    MethodTrace trace(component::kJsw, "BillboardView::setUpdateSoftware: ");
    const auto call = find(view::kSetUpdateSoftware, trace);
    if (!call) return;
    std::uint32_t updateSoftware = 0;
    const setting::Number& check = setting::kCheckForUpdates;
    if (Settings().read(check, updateSoftware) != Read::found) {
        trace.add("Unable to read the registry for key='", check.key, "' and value name='",
                  check.name, "'.");
    }
    trace.add("updateSoftware=", updateSoftware);
    call(updateSoftware);
}

void BillboardView::setSavedValues() const {
    MethodTrace trace(component::kJsw, "BillboardView::setSavedValues: ");
    const auto call = find(view::kSetSavedValue, trace);
    if (!call) return;
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
            call(name.c_str(), value.c_str());
        } else {
            trace.add("ERROR - unable to read value for valueName=", name, ".");
        }
    }
}

}  // namespace jsw
