#include "jsw/modules/RulesEngine.h"

namespace jsw {

RulesEngine::RulesEngine() {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::RulesEngine: ");
    const std::string fileName = moduleFilePath(setting::kRulesEngineModule);
    trace.add("Loading RulesEngine DLL, filename=", fileName, ".");
    dll_ = loadModule(fileName, component::kRulesEngine, trace);
}

RulesEngine::~RulesEngine() {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::~RulesEngine: ");
}

template <class Function, class... Args>
auto RulesEngine::forward(const char* name, MethodTrace& trace, const Args&... args)
    -> decltype(std::declval<Function>()(args...)) {
    if (!dll_) {
        trace.add("The rules engine DLL is not loaded.");
        return decltype(std::declval<Function>()(args...))();
    }
    return findEntry<Function>(dll_.get(), component::kRulesEngine, name, trace)
        .telling(lastCall_, args...);
}

bool RulesEngine::initialize(const InkInfo& inkInfo, const std::string& friendlyName,
                             const std::string& jobName, std::uint32_t totalPages,
                             std::uint32_t totalCopies) {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::initialize: ");
    const auto pages = asSigned(totalPages);
    const auto copies = asSigned(totalCopies);
    trace.add("friendlyName='", friendlyName, "' jobName='", jobName, "' totalPages=", pages,
              " totalCopies=", copies, ".");
    trace.setResult(0);
    if (!dll_) return false;  // the constructor has logged why
    const bool started = forward<JswRulesInitializeEngine>(
                             "InitializeEngine", trace, &allocateForModule, &inkInfo,
                             friendlyName.c_str(), jobName.c_str(), pages, copies) != 0;
    trace.setResult(started);
    return started;
}

void RulesEngine::updateSettings(const std::string& carts, bool inkBillboard,
                                 bool specialBillboard) {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::updateSettings: ");
    trace.add("carts=", carts, " inkBillboard=", inkBillboard,
              " specialBillboard=", specialBillboard);
    forward<JswRulesUpdateSettings>("UpdateSettings", trace, carts.c_str(), JswBool{inkBillboard},
                                    JswBool{specialBillboard});
}

std::string RulesEngine::evaluateRule() {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::evaluateRule: ");
    std::string result = takeText(forward<JswRulesEvaluateRule>("EvaluateRule", trace));
    trace.setResult(result);
    return result;
}

bool RulesEngine::askFlag(const char* tag, const char* name) {
    MethodTrace trace(component::kRulesEngine, tag);
    const bool answer = forward<JswRulesQuestion>(name, trace) != 0;
    trace.setResult(answer);
    return answer;
}

bool RulesEngine::isMoreRules() {
    return askFlag("RulesEngine::isMoreRules: ", "IsMoreRules");
}

bool RulesEngine::isHistoryChecked() {
    return askFlag("RulesEngine::isHistoryChecked: ", "IsHistoryChecked");
}

void RulesEngine::uninitialize() {
    MethodTrace trace(component::kRulesEngine, "RulesEngine::uninitialize: ");
    forward<JswRulesUnInitialize>("UnInitialize", trace);
}

}  // namespace jsw
