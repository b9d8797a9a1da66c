/**
 * @file catalog.h
 * Interface of the catalog module ("<id>bcat.dll"), which describes the billboards: the ids in each
 * category and each billboard's file, type, actions, navigation, window behaviour and cartridges.
 * The module is in the folder "DllPath" of the host's settings; the value "Catalog" may name
 * another file.
 *
 * Threads: Initialize is called once, on first use, before anything else; it must not wait for a
 * thread that calls the library. Several threads may call the other entry points at the same time.
 * The module is freed at the end of the job; jsw.dll may omit the call of UnInitialize.
 *
 * Memory: Initialize gets an allocation function. Every string and every array of strings that an
 * entry point returns must be allocated with it, each separately; jsw.dll copies and frees them. An
 * array ends with a null pointer. An empty string ends a list, too, and leaks together with the
 * entries after it: do not put one into a list. Strings passed in are valid only during the call.
 */
#ifndef JSW_CATALOG_H
#define JSW_CATALOG_H

#include <jsw/module.h>

/* Function types of the entry points. */
typedef void JswCatalogInitialize(JswAllocate allocate);
typedef void JswCatalogUnInitialize(void);
/** A list for a category or billboard id; null if there is none. */
typedef char** JswCatalogList(const char* id);
/** A text for a billboard id; null if there is none. */
typedef char* JswCatalogText(const char* billboardId);
/** A yes or no for a billboard id. */
typedef JswBool JswCatalogFlag(const char* billboardId);

/**
 * The entry points.
 *
 * - GetBillboardIds: the project ids of a category; null if the text is not a category.
 * - GetBillboardFileName: relative to the data path's "Scripts" folder.
 * - GetBillboardType: "standard", "ink", "ink_status" or any other text for a special billboard.
 * - GetBillboardActions: one web address or command per action number, counted from 0.
 * - GetBillboardCarts: the cartridges the billboard is about, passed to the rules engine unchanged.
 */
#define JSW_CATALOG_ENTRY_POINTS(X)                 \
    X(Initialize, JswCatalogInitialize)             \
    X(UnInitialize, JswCatalogUnInitialize)         \
    X(GetBillboardIds, JswCatalogList)              \
    X(GetBillboardFileName, JswCatalogText)         \
    X(GetBillboardType, JswCatalogText)             \
    X(GetBillboardActions, JswCatalogList)          \
    X(GetBillboardEnableNavigation, JswCatalogFlag) \
    X(GetBillboardRestoreWindow, JswCatalogFlag)    \
    X(GetBillboardCarts, JswCatalogText)

/** Makes the linker report entry points that are not defined; see module.h. */
#define JSW_CATALOG_REQUIRE_ENTRY_POINTS JSW_MODULE_REQUIRE(Catalog, JSW_CATALOG_ENTRY_POINTS)

#endif /* JSW_CATALOG_H */
