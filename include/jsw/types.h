/**
 * @file types.h
 * The ink record and the status codes, shared by the driver, jsw.dll and its modules.
 */
#ifndef JSW_TYPES_H
#define JSW_TYPES_H

#include <stddef.h>
#include <stdint.h>

/** Number of ink slots in InkInfo. */
#define JSW_INK_SLOTS 10

/** Bytes of a print head diagnostic text in InkInfo. */
#define JSW_PRINTHEAD_DIAG_SIZE 20

#pragma pack(push, 1)
/**
 * Ink and cartridge state at the start of a job: 152 bytes, packed, little-endian. The library
 * never writes to it. The log shows the same field names.
 */
typedef struct InkInfo {
    uint32_t InkStyle;                                 /**< offset 0 */
    int32_t InkPercent[JSW_INK_SLOTS];                 /**< 4: per cent; negative when unknown */
    uint32_t iChangedCartCount1;                       /**< 44 */
    uint32_t iChangedCartCount2;                       /**< 48 */
    uint32_t iLogCartID1;                              /**< 52 */
    uint32_t iLogCartID2;                              /**< 56 */
    uint32_t iPhysCartID1;                             /**< 60: carried unchanged */
    uint32_t iPhysCartID2;                             /**< 64: carried unchanged */
    uint32_t iCart1Authenticity;                       /**< 68 */
    uint32_t iCart2Authenticity;                       /**< 72 */
    uint32_t iCart1PYG;                                /**< 76 */
    uint32_t iCart2PYG;                                /**< 80 */
    uint32_t iCart1AlignRequired;                      /**< 84 */
    uint32_t iCart2AlignRequired;                      /**< 88 */
    uint32_t iEstPagesRemaining;                       /**< 92 */
    uint32_t iCart1UID;                                /**< 96 */
    uint32_t iCart2UID;                                /**< 100 */
    char iCart1PrintheadDiag[JSW_PRINTHEAD_DIAG_SIZE]; /**< 104: text; zero byte optional */
    char iCart2PrintheadDiag[JSW_PRINTHEAD_DIAG_SIZE]; /**< 124: text; zero byte optional */
    uint32_t iCart1PartNum;                            /**< 144 */
    uint32_t iCart2PartNum;                            /**< 148 */
} InkInfo;
#pragma pack(pop)

/**
 * Initialises a record in which no ink level is known: InkInfo ink = JSW_INK_UNKNOWN;
 * A level of 0 is an empty cartridge, not an unknown one.
 */
#define JSW_INK_UNKNOWN                                                                           \
    {                                                                                             \
        0, {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1}, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, \
            "", "", 0, 0                                                                          \
    }

#ifdef __cplusplus
#define JSW_STATIC_ASSERT(condition, text) static_assert(condition, text)
#else
#define JSW_STATIC_ASSERT(condition, text) _Static_assert(condition, text)
#endif
JSW_STATIC_ASSERT(sizeof(InkInfo) == 152, "InkInfo is 152 bytes");
JSW_STATIC_ASSERT(offsetof(InkInfo, InkPercent) == 4, "offset of InkPercent");
JSW_STATIC_ASSERT(offsetof(InkInfo, iChangedCartCount1) == 44, "offset of iChangedCartCount1");
JSW_STATIC_ASSERT(offsetof(InkInfo, iPhysCartID1) == 60, "offset of iPhysCartID1");
JSW_STATIC_ASSERT(offsetof(InkInfo, iCart1Authenticity) == 68, "offset of iCart1Authenticity");
JSW_STATIC_ASSERT(offsetof(InkInfo, iCart1AlignRequired) == 84, "offset of iCart1AlignRequired");
JSW_STATIC_ASSERT(offsetof(InkInfo, iEstPagesRemaining) == 92, "offset of iEstPagesRemaining");
JSW_STATIC_ASSERT(offsetof(InkInfo, iCart1PrintheadDiag) == 104, "offset of iCart1PrintheadDiag");
JSW_STATIC_ASSERT(offsetof(InkInfo, iCart2PrintheadDiag) == 124, "offset of iCart2PrintheadDiag");
JSW_STATIC_ASSERT(offsetof(InkInfo, iCart1PartNum) == 144, "offset of iCart1PartNum");

/** Status codes of a job window. Other codes are possible and reach the callback unchanged. */
enum JswStatus {
    JSW_STATUS_GUI_CLOSED = 2,   /**< the user closed the window; not reported to the driver */
    JSW_STATUS_JOB_CLOSED = 3,   /**< the job was closed */
    JSW_STATUS_JOB_CANCELLED = 9 /**< the user asked to cancel the job */
};

#endif /* JSW_TYPES_H */
