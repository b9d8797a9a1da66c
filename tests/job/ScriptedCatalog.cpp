// A catalog module that answers from the test's script.

#include "PublicLib/text/Text.h"
#include "tests/job/Script.h"

#include <cstring>
#include <stdexcept>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)

namespace {

using jsw::concat;
using jsw::test::Script;
using jsw::test::script;

/// Null until the library passes its allocation function.
JswAllocate allocateFunction = nullptr;

void* allocate(std::size_t size) {
    return allocateFunction != nullptr ? allocateFunction(static_cast<int32_t>(size)) : nullptr;
}

char* newText(const std::string& text) {
    if (script().textsLeadNowhere) return reinterpret_cast<char*>(8);
    auto* copy = static_cast<char*>(allocate(text.size() + 1));
    if (copy == nullptr) return nullptr;
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

char** newList(const std::vector<std::string>& texts) {
    if (script().listsLeadNowhere) return reinterpret_cast<char**>(8);
    if (texts.empty() && !script().emptyLists) return nullptr;
    auto** list = static_cast<char**>(allocate((texts.size() + 1) * sizeof(char*)));
    if (list == nullptr) return nullptr;
    for (std::size_t i = 0; i < texts.size(); ++i) list[i] = newText(texts[i]);
    list[texts.size()] = nullptr;
    return list;
}

void asked(const char* name) {
    if (script().onCatalogCall) script().onCatalogCall(name);
}

const Script::Billboard* find(const char* id) {
    const auto entry = script().billboards.find(id);
    return entry == script().billboards.end() ? nullptr : &entry->second;
}

}  // namespace

extern "C" {

void Initialize(JswAllocate function) {
    script().catalog.add("Initialize()");
    allocateFunction = function;
    asked("Initialize");
    if (script().catalogRaises) throw std::runtime_error("no catalog");
}

void UnInitialize() {
    script().catalog.add("UnInitialize()");
}

char** GetBillboardIds(const char* category) {
    asked("GetBillboardIds");
    const auto entry = script().categories.find(category);
    return newList(entry == script().categories.end() ? std::vector<std::string>{} : entry->second);
}

char** GetBillboardActions(const char* id) {
    asked("GetBillboardActions");
    const auto* billboard = find(id);
    return newList(billboard == nullptr ? std::vector<std::string>{} : billboard->actions);
}

char* GetBillboardFileName(const char* id) {
    asked("GetBillboardFileName");
    const auto* billboard = find(id);
    return billboard == nullptr ? nullptr : newText(billboard->file);
}

char* GetBillboardType(const char* id) {
    asked("GetBillboardType");
    const auto* billboard = find(id);
    return billboard == nullptr ? nullptr : newText(billboard->type);
}

char* GetBillboardCarts(const char* id) {
    asked("GetBillboardCarts");
    const auto* billboard = find(id);
    return billboard == nullptr ? nullptr : newText(billboard->carts);
}

JswBool GetBillboardEnableNavigation(const char* id) {
    asked("GetBillboardEnableNavigation");
    const auto* billboard = find(id);
    return billboard != nullptr && billboard->navigate;
}

JswBool GetBillboardRestoreWindow(const char* id) {
    asked("GetBillboardRestoreWindow");
    const auto* billboard = find(id);
    return billboard != nullptr && billboard->restore;
}
}
