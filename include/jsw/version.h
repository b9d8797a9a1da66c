/**
 * @file version.h
 * The version of jsw.dll and of this kit. The build takes it from here, for the resource, the tools
 * and the package.
 */
#ifndef JSW_VERSION_H
#define JSW_VERSION_H

#define JSW_VERSION_MAJOR 1
#define JSW_VERSION_MINOR 1
#define JSW_VERSION_PATCH 0

/** Compares: #if JSW_VERSION >= 10200 means 1.2.0 or later. */
#define JSW_VERSION (JSW_VERSION_MAJOR * 10000 + JSW_VERSION_MINOR * 100 + JSW_VERSION_PATCH)

#define JSW_VERSION_STRING "1.1.0"

#endif /* JSW_VERSION_H */
