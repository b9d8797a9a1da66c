#pragma once

#include "jsw/modules/ModuleBinding.h"
#include <jsw/rules.h>

#include <memory>
#include <string>

namespace jsw {

/// The rules engine module for one run of rules. Not thread-safe. Nothing is raised: without the
/// module or an entry point, the answer is empty.
class RulesEngine {
  public:
    RulesEngine();
    virtual ~RulesEngine();
    RulesEngine(const RulesEngine&) = delete;
    RulesEngine& operator=(const RulesEngine&) = delete;

    [[nodiscard]] bool initialize(const InkInfo& inkInfo, const std::string& friendlyName,
                                  const std::string& jobName, std::uint32_t totalPages,
                                  std::uint32_t totalCopies);
    void updateSettings(const std::string& carts, bool inkBillboard, bool specialBillboard);
    /// A category or billboard id; empty if the rule does not apply.
    std::string evaluateRule();
    bool isMoreRules();
    bool isHistoryChecked();
    void uninitialize();

    /// How the last call of the module ended.
    CallEnd lastCall() const { return lastCall_; }

  private:
    template <class Function, class... Args>
    auto forward(const char* name, MethodTrace& trace, const Args&... args)
        -> decltype(std::declval<Function>()(args...));
    bool askFlag(const char* tag, const char* name);

    std::unique_ptr<ModuleDll> dll_;
    CallEnd lastCall_ = CallEnd::returned;
};

}  // namespace jsw
