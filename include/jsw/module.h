/**
 * @file module.h
 * What the interfaces of all modules that jsw.dll loads have in common.
 *
 * A module is a dynamic library with undecorated entry points. jsw.dll looks an entry point up by
 * name at every call; one that is missing is skipped and noted in the log, so a module only needs
 * the entry points it has a use for.
 *
 * Each interface header lists its entry points in a macro of the form LIST(X), where X is called
 * with the entry point's name and its function type. Declaring them all with
 *
 *     JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)
 *
 * makes the compiler check a module's definitions against the interface and export them.
 *
 * No C++ exception may leave an entry point.
 */
#ifndef JSW_MODULE_H
#define JSW_MODULE_H

#include "jsw/types.h"

#include <stdint.h>

/** A truth value that crosses a module boundary: one byte, 0 or 1. */
typedef uint8_t JswBool;

/**
 * Allocates memory that a module hands to jsw.dll: size bytes from the heap of the C library that
 * jsw.dll uses. Null when there is not enough. jsw.dll frees it.
 */
typedef void* (*JswAllocate)(int32_t size);

#ifdef __cplusplus
#define JSW_MODULE_DECLARE(name, type) extern "C" __declspec(dllexport) type name;
#else
#define JSW_MODULE_DECLARE(name, type) __declspec(dllexport) type name;
#endif

#endif /* JSW_MODULE_H */
