#pragma once

#include "tests/support/CallRecord.h"
#include <jsw/catalog.h>
#include <jsw/legacy.h>
#include <jsw/rules.h>
#include <jsw/view.h>

#include <windows.h>

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace jsw::test {

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

    /// Lets the scripted modules of this process find it.
    void offer() {
        const std::string address = std::to_string(reinterpret_cast<std::uintptr_t>(this));
        SetEnvironmentVariableA(kVariable, address.c_str());
    }
    static Script& offered() {
        char address[32] = "0";
        GetEnvironmentVariableA(kVariable, address, sizeof(address));
        return *reinterpret_cast<Script*>(std::stoull(address));
    }
    static constexpr char kVariable[] = "JSW_TEST_SCRIPT";
};

/// For the modules: the script of the test program.
inline Script& script() {
    return Script::offered();
}

}  // namespace jsw::test
