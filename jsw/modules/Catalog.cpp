#include "jsw/modules/Catalog.h"

#include "PublicLib/locks/Singleton.h"

#include <mutex>
#include <optional>

namespace jsw {

namespace {

constexpr char kNoList[] =
    "There are no project Ids for the given category. It may be a project id instead.";

/// The number of texts in a list, which a null pointer or an empty text ends. Nothing if the list
/// or a text is an invalid pointer, which is the module's fault.
std::optional<std::size_t> countTexts(const char* const* list) {
    std::size_t count = 0;
    CallEnd end{};
    callForeign(
        component::kCatalog, "a list that it returned",
        [&] {
            while (list[count] != nullptr && *list[count] != '\0') ++count;
        },
        end);
    if (end != CallEnd::returned) return std::nullopt;
    return count;
}

}  // namespace

/// The log texts of a query for a list.
struct Catalog::ListTexts {
    const char* entryName;
    const char* emptyList;
    const char* added;
};

std::shared_ptr<Catalog> Catalog::instance() {
    MethodTrace trace(component::kCatalog, "Catalog::instance: ");
    return singleton<Catalog>->instance([&] {
        trace.add("instantiating Catalog.");
        return std::make_shared<Catalog>();
    });
}

void Catalog::destroy() {
    MethodTrace trace(component::kCatalog, "Catalog::destroy: ");
    singleton<Catalog>->destroy([&] { trace.add("destroying Catalog."); });
}

Catalog::Catalog() {
    MethodTrace trace(component::kCatalog, "Catalog::Catalog: ");
}

Catalog::~Catalog() {
    MethodTrace trace(component::kCatalog, "Catalog::~Catalog: ");
}

template <class Function>
ModuleCall<Function> Catalog::find(const char* name, MethodTrace& trace) const {
    return findEntry<Function>(dll_.get(), component::kCatalog, name, trace);
}

bool Catalog::initialize() {
    MethodTrace trace(component::kCatalog, "Catalog::initialize: ");
    const std::lock_guard lock(loadLock_);
    if (dll_) {
        trace.add("Catalog is already loaded.");
        trace.setResult(1);
        return true;
    }
    trace.setResult(0);
    const std::string fileName = moduleFilePath(setting::kCatalogModule);
    trace.add("Loading catalog DLL, filename=", fileName, ".");
    dll_ = loadModule(fileName, component::kCatalog, trace);
    if (!dll_) {
        trace.add("ERROR - Catalog is not loaded.");
        return false;
    }
    const auto start = find<JswCatalogInitialize>("Initialize", trace);
    if (!start) return false;
    CallEnd end{};
    start.telling(end, &allocateForModule);
    if (end != CallEnd::returned) {
        // A module that could not start is not queried; the next query tries to load it again.
        dll_.reset();
        trace.add("ERROR - Catalog is not loaded.");
        return false;
    }
    trace.setResult(1);
    return true;
}

void Catalog::uninitialize() {
    MethodTrace trace(component::kCatalog, "Catalog::uninitialize: ");
    const std::lock_guard lock(loadLock_);
    if (!dll_) {
        trace.add("ERROR - Catalog is not loaded.");
        return;
    }
    find<JswCatalogUnInitialize>("UnInitialize", trace)();
}

/// Queries the module; returns the empty answer if that is not possible.
template <class Function>
auto Catalog::ask(const char* name, const std::string& id, MethodTrace& trace)
    -> decltype(std::declval<Function>()(nullptr)) {
    if (!initialize()) return {};
    return find<Function>(name, trace)(id.c_str());
}

std::string Catalog::askText(const char* tag, const char* name, const std::string& bbId) {
    MethodTrace trace(component::kCatalog, tag);
    trace.add("bbId=", bbId);
    std::string answer = takeText(ask<JswCatalogText>(name, bbId, trace));
    trace.setResult(answer);
    return answer;
}

std::string Catalog::getBillboardFileName(const std::string& bbId) {
    return askText("Catalog::getBillboardFileName: ", "GetBillboardFileName", bbId);
}

std::string Catalog::getBillboardType(const std::string& bbId) {
    return askText("Catalog::getBillboardType: ", "GetBillboardType", bbId);
}

std::string Catalog::getCarts(const std::string& bbId) {
    return askText("Catalog::getCarts: ", "GetBillboardCarts", bbId);
}

bool Catalog::askFlag(const char* tag, const char* name, const std::string& bbId) {
    MethodTrace trace(component::kCatalog, tag);
    trace.add("bbId=", bbId);
    const bool answer = ask<JswCatalogFlag>(name, bbId, trace) != 0;
    trace.setResult(answer);
    return answer;
}

bool Catalog::getEnableNavigation(const std::string& bbId) {
    return askFlag("Catalog::getEnableNavigation: ", "GetBillboardEnableNavigation", bbId);
}

bool Catalog::getRestoreWindow(const std::string& bbId) {
    return askFlag("Catalog::getRestoreWindow: ", "GetBillboardRestoreWindow", bbId);
}

void Catalog::askList(const ListTexts& texts, const std::string& id, std::vector<std::string>& list,
                      MethodTrace& trace) {
    list.clear();
    if (!initialize()) return;
    const auto entry = find<JswCatalogList>(texts.entryName, trace);
    if (!entry) return;
    char** const answer = entry(id.c_str());
    if (answer == nullptr) {
        trace.add(kNoList);
        return;
    }
    const auto count = countTexts(answer);
    if (!count) return;  // ownership unknown, so not freed
    const ModuleMemory<char*> owner(answer);
    if (*answer == nullptr) trace.add(texts.emptyList);
    // The empty text that ends the list and the entries after it are not freed.
    for (std::size_t i = 0; i < *count; ++i) {
        list.push_back(takeText(answer[i]));
        trace.add(texts.added, list.back());
    }
}

void Catalog::getBillboardIds(const std::string& category, std::vector<std::string>& ids) {
    MethodTrace trace(component::kCatalog, "Catalog::getBillboardIds: ");
    trace.add("bbCategory=", category);
    askList({"GetBillboardIds", "There is not a project Ids for the given category.",
             "Added project ID="},
            category, ids, trace);
}

void Catalog::getBillboardActions(const std::string& bbId, std::vector<std::string>& actions) {
    MethodTrace trace(component::kCatalog, "Catalog::getBillboardActions: ");
    trace.add("bbId=", bbId);
    // The texts: see "Fixed interfaces" in docs/architecture.md.
    askList({"GetBillboardActions", "There are no project Ids for the given category.",
             "Added action="},
            bbId, actions, trace);
}

std::string Catalog::getBillboardActionParam(const std::string& bbId, std::int32_t actionId) {
    MethodTrace trace(component::kCatalog, "Catalog::getBillboardActionParam(bbId=", bbId,
                      ", actionId=", actionId, "): ");
    if (!initialize()) return {};
    if (actionId < 0) {
        trace.add("ERROR - actionId < 0");
        return {};
    }
    std::vector<std::string> actions;
    getBillboardActions(bbId, actions);
    if (static_cast<std::size_t>(actionId) >= actions.size()) {
        trace.add("ERROR - actionId > number of actions. Number of actions=", actions.size());
        return {};
    }
    std::string param = std::move(actions[static_cast<std::size_t>(actionId)]);
    trace.setResult(param);
    return param;
}

}  // namespace jsw
