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
 * makes the compiler check a module's definitions against the interface and export them. A
 * definition with a misspelt name is another function to the compiler, and the entry point is
 * simply not there; a module that means to have them all therefore adds, once and after the
 * declarations,
 *
 *     JSW_VIEW_REQUIRE_ENTRY_POINTS
 *
 * and the linker names every one that is not defined.
 *
 * Where a module lies: "<id>" in the file names given by the headers stands for the host's id, the
 * first four letters of its program's file name in lower case. The host printdlg.exe loads
 * "prinjswv.dll", unless its settings name another file.
 *
 * No C++ exception may leave an entry point. One that does counts as an empty answer.
 *
 * All modules but the view's are loaded and freed for each job: what a module takes of the process
 * it must give back before it is freed, or the process runs out of it after a thousand jobs. With
 * MinGW avoid std::thread, std::mutex, thread_local and the streams, each of which loses an index
 * of thread-local storage, and compile samples/common/ModuleEnd.cpp into the module: without it an
 * exception, even one caught inside, loses another index, and 70 KB of memory stay behind.
 */
#ifndef JSW_MODULE_H
#define JSW_MODULE_H

#include <jsw/types.h>

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
