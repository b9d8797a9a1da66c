#pragma once

#include "PublicLib/locks/CriticalSection.h"
#include "jsw/modules/ModuleBinding.h"
#include <jsw/catalog.h>

#include <memory>
#include <string>
#include <vector>

namespace jsw {

/// The process-wide binding of the catalog module, which describes the billboards. The first query
/// loads the module. Thread-safe. Nothing is raised: whatever is missing gives an empty answer.
class Catalog {
  public:
    static std::shared_ptr<Catalog> instance();
    static void destroy();

    Catalog();
    virtual ~Catalog();

    /// Loads and starts the module, once; false if there is no usable module, for example because
    /// its start raises an exception.
    bool initialize();
    void uninitialize();

    /// Replaces the list by the project ids of a category; empty if the text is not a category.
    void getBillboardIds(const std::string& category, std::vector<std::string>& ids);
    void getBillboardActions(const std::string& bbId, std::vector<std::string>& actions);
    /// The parameter of one action, counted from 0; empty if there is none.
    std::string getBillboardActionParam(const std::string& bbId, std::int32_t actionId);
    std::string getBillboardFileName(const std::string& bbId);
    std::string getBillboardType(const std::string& bbId);
    std::string getCarts(const std::string& bbId);
    bool getEnableNavigation(const std::string& bbId);
    bool getRestoreWindow(const std::string& bbId);

  private:
    struct ListTexts;

    template <class Function>
    ModuleCall<Function> find(const char* name, MethodTrace& trace) const;
    template <class Function>
    auto ask(const char* name, const std::string& id, MethodTrace& trace)
        -> decltype(std::declval<Function>()(nullptr));
    std::string askText(const char* tag, const char* name, const std::string& bbId);
    bool askFlag(const char* tag, const char* name, const std::string& bbId);
    void askList(const ListTexts& texts, const std::string& id, std::vector<std::string>& list,
                 MethodTrace& trace);

    // Two threads may make their first query at the same time. The module's Initialize runs under
    // this lock, so that every query comes after it.
    CriticalSection loadLock_;
    std::unique_ptr<ModuleDll> dll_;
};

}  // namespace jsw
