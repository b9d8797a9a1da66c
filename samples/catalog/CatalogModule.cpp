/**
 * @file CatalogModule.cpp
 * The entry points of the sample catalog. Initialize reads the catalog file; the other entry points
 * use the stored contents.
 */
#include "samples/catalog/CatalogData.h"
#include "samples/common/HostStore.h"
#include "samples/common/ModuleLock.h"
#include "samples/common/ReturnedText.h"
#include "samples/common/XmlFile.h"
#include <jsw/catalog.h>

#include <memory>
#include <mutex>

JSW_CATALOG_ENTRY_POINTS(JSW_MODULE_DECLARE)
JSW_CATALOG_REQUIRE_ENTRY_POINTS

namespace {

using jsw::sample::Billboard;
using jsw::sample::CatalogData;

/** The data for a query; a running query keeps its catalog alive across an UnInitialize. */
struct Source {
    std::shared_ptr<const CatalogData> catalog;
    JswAllocate allocate = nullptr;
};

jsw::sample::ModuleLock sourceLock;
Source currentSource;

Source source() {
    const std::lock_guard lock(sourceLock);
    return currentSource;
}

void setSource(Source next) {
    const std::lock_guard lock(sourceLock);
    std::swap(currentSource, next);
}

/** Returns ask(source); the empty answer without a catalog or on failure. */
template <class Answer, class Ask>
Answer answer(const char* id, Ask ask) noexcept {
    try {
        const Source from = source();
        return from.catalog && id != nullptr ? ask(from) : Answer{};
    } catch (...) {
        return Answer{};
    }
}

/** Returns ask(billboard, allocate) for a known id. */
template <class Answer, class Ask>
Answer answerFor(const char* billboardId, Ask ask) noexcept {
    return answer<Answer>(billboardId, [&](const Source& from) {
        const Billboard* billboard = from.catalog->billboard(billboardId);
        return billboard == nullptr ? Answer{} : ask(*billboard, from.allocate);
    });
}

char* textFor(const char* billboardId, std::string Billboard::*field) noexcept {
    return answerFor<char*>(billboardId, [&](const Billboard& billboard, JswAllocate allocate) {
        return jsw::sample::returnedText(allocate, billboard.*field);
    });
}

JswBool flagFor(const char* billboardId, bool Billboard::*field) noexcept {
    return answerFor<JswBool>(billboardId, [&](const Billboard& billboard, JswAllocate) {
        return static_cast<JswBool>(billboard.*field ? 1 : 0);
    });
}

}  // namespace

void Initialize(JswAllocate allocate) {
    try {
        const std::string path = jsw::sample::HostStore().dataFile(
            "Settings\\Catalog\\", "CatalogFilename", "catalog.xml");
        const auto root = jsw::sample::loadXmlFile(path);
        setSource(
            {std::make_shared<CatalogData>(root ? CatalogData(*root) : CatalogData()), allocate});
    } catch (...) {
        UnInitialize();  // without a catalog every answer is empty
    }
}

void UnInitialize() {
    setSource({});
}

char** GetBillboardIds(const char* id) {
    return answer<char**>(id, [&](const Source& from) {
        return jsw::sample::returnedList(from.allocate, from.catalog->projects(id));
    });
}

char** GetBillboardActions(const char* id) {
    return answerFor<char**>(id, [](const Billboard& billboard, JswAllocate allocate) {
        return jsw::sample::returnedList(allocate, billboard.actions);
    });
}

char* GetBillboardFileName(const char* billboardId) {
    return textFor(billboardId, &Billboard::file);
}

char* GetBillboardType(const char* billboardId) {
    return textFor(billboardId, &Billboard::type);
}

char* GetBillboardCarts(const char* billboardId) {
    return textFor(billboardId, &Billboard::carts);
}

JswBool GetBillboardEnableNavigation(const char* billboardId) {
    return flagFor(billboardId, &Billboard::navigation);
}

JswBool GetBillboardRestoreWindow(const char* billboardId) {
    return flagFor(billboardId, &Billboard::restore);
}
