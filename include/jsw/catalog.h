/**
 * @file catalog.h
 * Interface of the catalog module ("<id>bcat.dll"), which knows the billboards: the ids in each
 * category and each billboard's file, type, actions, navigation, window behaviour and cartridges.
 * It lies in the folder "DllPath" of the host's settings; the value "Catalog" may name another
 * file.
 *
 * Initialize is called once, on first use, before anything else; it must not wait for a thread that
 * asks a question. Questions may come from several threads at once. The module is freed when the
 * job is over; jsw.dll does not count on UnInitialize for that and may not call it.
 *
 * Memory: Initialize hands over an allocation function. Every string and every array of strings
 * that an entry point returns must be allocated with it, each on its own; jsw.dll copies and frees
 * them. An array ends with a null pointer. An empty string ends a list early: do not put one into
 * a list, it and what follows it would never be freed. Strings passed in are valid only during
 * the call.
 */
#ifndef JSW_CATALOG_H
#define JSW_CATALOG_H

#include <jsw/module.h>

/* Function types of the entry points. */
typedef void JswCatalogInitialize(JswAllocate allocate);
typedef void JswCatalogUnInitialize(void);
/** A list for a category or billboard id, or null when there is none. */
typedef char** JswCatalogList(const char* id);
/** A text for a billboard id, or null when there is none. */
typedef char* JswCatalogText(const char* billboardId);
/** A yes or no for a billboard id. */
typedef JswBool JswCatalogFlag(const char* billboardId);

/**
 * The entry points.
 *
 * GetBillboardIds: the project ids of a category, null when the text is no category.
 * GetBillboardFileName: relative to the data path's "Scripts" folder. GetBillboardType:
 * "standard", "ink", "ink_status" or any other text for a special billboard. GetBillboardActions:
 * one parameter per action number, counted from 0 (a web address or a command). GetBillboardCarts:
 * the cartridges the billboard concerns, handed on to the rules engine as it is.
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
