#pragma once

#include <jsw/catalog.h>
#include <jsw/legacy.h>
#include <jsw/rules.h>
#include <jsw/view.h>

#include <cstdlib>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace jsw::test {

/// The calls of a scripted module, in order, from any thread.
class CallRecord {
  public:
    void add(const std::string& call) {
        const std::lock_guard lock(lock_);
        calls_.push_back(call);
    }
    std::vector<std::string> calls() const {
        const std::lock_guard lock(lock_);
        return calls_;
    }
    void clear() {
        const std::lock_guard lock(lock_);
        calls_.clear();
    }

  private:
    mutable std::mutex lock_;
    std::vector<std::string> calls_;
};

/// The behaviour of the scripted modules, and records of their calls. It is in the test program;
/// the modules find it by an environment variable.
struct Script {
    // The view.
    CallRecord view;
    JswViewEventCallback reportEvent = nullptr;
    JswViewBillboardCallback clickBillboard = nullptr;
    JswViewSaveAppearanceCallback saveAppearance = nullptr;
    JswViewSaveValueCallback saveValue = nullptr;
    JswViewUpdateSoftwareCallback saveUpdateSoftware = nullptr;
    InkInfo inkInfo{};
    std::function<void(const std::string& call)> onViewCall;  ///< at the end of each call

    // The catalog.
    struct Billboard {
        std::string file;
        std::string type = "standard";
        std::vector<std::string> actions{};
        bool navigate = false;
        bool restore = false;
        std::string carts{};
    };
    CallRecord catalog;
    std::map<std::string, Billboard> billboards;
    bool textsLeadNowhere = false;  ///< the catalog returns invalid pointers
    bool listsLeadNowhere = false;
    std::map<std::string, std::vector<std::string>> categories;
    bool catalogRaises = false;                                  ///< at the end of its start
    std::function<void(const std::string& name)> onCatalogCall;  ///< at the start of each query
    bool emptyLists = false;  ///< returns empty lists instead of none

    // The rules engine.
    CallRecord rules;
    std::vector<std::string> ruleResults;  ///< "" means null
    bool rulesNeverEnd = false;
    bool checkHistory = true;
    bool engineStarts = true;
    std::function<void()> onEvaluateRule;

    // The older job window.
    CallRecord legacy;
    bool legacyStarts = true;
    std::function<void()> onPrompt;

    /// Resets the modules' behaviour: they do nothing by themselves.
    void behave() {
        onViewCall = nullptr;
        onCatalogCall = nullptr;
        onEvaluateRule = nullptr;
        onPrompt = nullptr;
        textsLeadNowhere = rulesNeverEnd = catalogRaises = false;
    }
};

/// Names the environment variable that holds the script's address.
inline constexpr char kScriptVariable[] = "JSW_TEST_SCRIPT";

}  // namespace jsw::test
