#pragma once

#include "jsw/modules/Job.h"
#include "jsw/modules/ModuleBinding.h"
#include "jsw/modules/Subject.h"
#include "jsw/modules/ViewEntryPoints.h"
#include "jsw/settings/SettingNames.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace jsw {

/// What the window shows at the start.
struct FirstBillboard {
    std::string dataPath;          ///< folder of the billboard data, without a trailing backslash
    std::string defaultBillboard;  ///< file name
    bool navigate;
    bool restore;
};

/// The process-wide binding of the view module, which draws the job window. Window events are
/// published to the attached observers. The driver's threads call it one at a time;
/// displayBillboard() may be called on any thread. Without a module every operation only logs.
class BillboardView : public Subject {
  public:
    static std::shared_ptr<BillboardView> instance();
    static void destroy();

    BillboardView();
    /// Leaves the module loaded until the process exits, because a thread of its window may still
    /// run its code. Later jobs share it.
    ~BillboardView() override;

    /// Sets the window up and shows it, unless the user has switched it off. False only without a
    /// module.
    [[nodiscard]] bool jswInit(const Job& job, const FirstBillboard& first);
    void jswTerminate();
    void jswUpdateInfo(std::uint32_t value1, std::uint32_t value2, std::uint32_t value3,
                       void* data);
    /// @param billboard  file name below the data path's "Scripts" folder; empty for none
    void displayBillboard(const std::string& billboard, bool enableBillboardNavigation,
                          bool restoreWindow);

    bool showSpecialMessages() const { return showSpecialMessages_; }

  private:
    static void jswCallback(std::int32_t event);
    static void billboardCallback(const char* action, std::int32_t actionId);
    static void saveAppearanceCallback(const char* key, std::int32_t value);
    static void saveValueCallback(const char* key, const char* value);
    static void saveUpdateSoftwareCallback(std::int32_t updateSoftware);

    template <class Entry>
    ModuleCall<typename Entry::Function> find(const Entry& entry, MethodTrace& trace) const;
    template <class Entry, class... Args>
    void forwardAs(const char* tag, const Entry& entry, const Args&... args) const;
    template <class Entry, class... Args>
    void forward(const Entry& entry, const Args&... args) const;
    template <class Entry, class... Args>
    void forwardMarked(const char* tag, const Entry& entry, MethodTrace& trace,
                       const Args&... args) const;

    void logInkInfo(const InkInfo& inkInfo) const;
    void setUp(const Job& job, const FirstBillboard& first);
    void showGui();
    void hideGui();
    void setDataPath(const std::string& dataPath) const;
    void setAppearance();
    void setUpdateSoftware() const;
    void setSavedValues() const;
    void setGuiSetting(const view::EntryPoint<JswViewFlag>& entry, const setting::Number& number,
                       std::uint32_t defaultValue) const;
    bool readFlag(const setting::Number& number) const;
    void saveAppearance(const std::string& key, std::int32_t value);

    ModuleDll* dll_ = nullptr;  // loaded until the process ends
    std::atomic<bool> showSpecialMessages_{false};
    std::atomic<bool> isUp_{false};  // from Initialize until Uninitialize
    bool showProcessWindow_ = false;
    std::string ofnPath_;  // printer whose store holds the window's options; empty: none
};

}  // namespace jsw
