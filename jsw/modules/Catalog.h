#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/modules/ModuleBinding.h"
#include <jsw/catalog.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw {

/// The process-wide binding of the catalog module, which knows the billboards. The first question
/// loads the module. Nothing is raised: whatever is missing gives an empty answer.
class Catalog {
  public:
    static std::shared_ptr<Catalog> instance();
    static void destroy();

    Catalog();
    virtual ~Catalog();

    /// Loads the module and starts it, once; false when there is no usable module, such as one that
    /// raises an exception when it is started.
    bool initialize();
    void uninitialize();

    /// Project ids of a category; the list is replaced, and empty for a text that is no category.
    void getBillboardIds(const std::string& category, std::vector<std::string>& ids);
    void getBillboardActions(const std::string& bbId, std::vector<std::string>& actions);
    /// The parameter of one action, counted from 0; empty when there is none.
    std::string getBillboardActionParam(const std::string& bbId, std::int32_t actionId);
    std::string getBillboardFileName(const std::string& bbId);
    std::string getBillboardType(const std::string& bbId);
    std::string getCarts(const std::string& bbId);
    bool getEnableNavigation(const std::string& bbId);
    bool getRestoreWindow(const std::string& bbId);

  private:
    struct ListTexts;

    template <class Function>
    auto ask(const char* name, const std::string& id, MethodTrace& trace)
        -> decltype(std::declval<Function>()(nullptr));
    std::string askText(const char* tag, const char* name, const std::string& bbId);
    bool askFlag(const char* tag, const char* name, const std::string& bbId);
    void askList(const ListTexts& texts, const std::string& id, std::vector<std::string>& list,
                 MethodTrace& trace);

    // Two threads may ask their first question at once. The module's Initialize runs under it, so
    // that no question comes before its end.
    CriticalSection loadLock_;
    std::unique_ptr<ModuleDll> dll_;
};

}  // namespace jsw
