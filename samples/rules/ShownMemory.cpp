#include "samples/rules/ShownMemory.h"

#include "samples/common/HostStore.h"

namespace jsw::sample {
namespace {

constexpr const char* kEngineKey = "Settings\\RulesEngine\\";
constexpr const char* kCartsKey = "Settings\\RulesEngine\\Carts\\";
constexpr const char* kSpecialShown = "SpecialShown";
constexpr const char* kInkShown = "InkShown";

void countUp(const HostStore& store, const char* key, const std::string& name) {
    store.setNumber(key, name, store.number(key, name, 0) + 1);
}

}  // namespace

ShownCounts readShownCounts(const std::vector<Rule>& rules) {
    const HostStore store;
    ShownCounts counts;
    counts.special = store.number(kEngineKey, kSpecialShown, 0);
    counts.ink = store.number(kEngineKey, kInkShown, 0);
    for (const Rule& rule : rules) {
        for (const Condition& condition : rule.conditions) {
            const auto* number = std::get_if<NumberCondition>(&condition);
            if (number != nullptr && !number->carts.empty()) {
                counts.carts[number->carts] = store.number(kCartsKey, number->carts, 0);
            }
        }
    }
    return counts;
}

void rememberShown(const std::string& carts, bool inkBillboard, bool specialBillboard) {
    const HostStore store;
    if (specialBillboard) countUp(store, kEngineKey, kSpecialShown);
    if (inkBillboard && !carts.empty()) {
        countUp(store, kEngineKey, kInkShown);
        countUp(store, kCartsKey, carts);
    }
}

}  // namespace jsw::sample
