/**
 * @file module.h
 * What all modules that jsw.dll loads have in common.
 *
 * A module is a dynamic library with undecorated entry points. jsw.dll looks up an entry point by
 * name at every call; it skips a missing one and logs it, so a module needs only the entry points
 * it uses.
 *
 * Each interface header lists its entry points in a macro of the form LIST(X), which calls X with
 * each entry point's name and function type. Declaring them all with
 *
 *     JSW_VIEW_ENTRY_POINTS(JSW_MODULE_DECLARE)
 *
 * makes the compiler check the types of a module's definitions and export them. It does not find
 * misspelt names. A module that implements all entry points therefore adds, once and after the
 * declarations,
 *
 *     JSW_VIEW_REQUIRE_ENTRY_POINTS
 *
 * and the linker names every one that is not defined.
 *
 * File names: "<id>" in the headers is the host's id, the first four letters of its program's file
 * name in lower case. The host printdlg.exe loads "prinjswv.dll", unless its settings name another
 * file.
 *
 * No C++ exception may leave an entry point. If one does, the call counts as answered with nothing.
 *
 * All modules except the view are loaded and freed for each job: a module must release all process
 * resources before it is freed, or the process runs out of them after a thousand jobs. With MinGW
 * avoid std::thread, std::mutex, thread_local and the streams, because each leaks an index of
 * thread-local storage. Compile common/ModuleEnd.cpp into the module: without it an
 * exception, even one caught inside, leaks another index and 70 KB of memory.
 */
#ifndef JSW_MODULE_H
#define JSW_MODULE_H

#include <jsw/types.h>

#include <stdint.h>

/** A truth value that crosses a module boundary: one byte, 0 or 1. */
typedef uint8_t JswBool;

/**
 * Allocates memory that a module returns to jsw.dll: size bytes from the heap of jsw.dll's C
 * library, or null if there is not enough. jsw.dll frees it.
 */
typedef void* (*JswAllocate)(int32_t size);

#ifdef __cplusplus
#define JSW_MODULE_DECLARE(name, type) extern "C" __declspec(dllexport) type name;
#else
#define JSW_MODULE_DECLARE(name, type) __declspec(dllexport) type name;
#endif

/* How the JSW_..._REQUIRE_ENTRY_POINTS macros work: a table that refers to each function. */
#define JSW_MODULE_MEMBER(name, type) type* name;
#define JSW_MODULE_ADDRESS(name, type) name,
#define JSW_MODULE_REQUIRE(kind, LIST)                                 \
    struct Jsw##kind##EntryPoints {                                    \
        LIST(JSW_MODULE_MEMBER)                                        \
    };                                                                 \
    extern const struct Jsw##kind##EntryPoints jsw##kind##EntryPoints; \
    const struct Jsw##kind##EntryPoints jsw##kind##EntryPoints = {LIST(JSW_MODULE_ADDRESS)};

#endif /* JSW_MODULE_H */
