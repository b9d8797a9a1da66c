/**
 * @file product_lines.h
 * The product lines. A host program's name decides its product line, and thereby where its settings
 * are. This header is for code that looks for them itself, such as installers and modules that keep
 * values beside the library's.
 *
 * The settings of a host are in HKEY_LOCAL_MACHINE, in
 *
 *     Software\<key>\JSW\Local\<id>\
 *
 * <id> is the first four letters of the host program's file name in lower case. <key> is that of
 * the first row whose prefix is the first two letters of the id, or else JSW_NO_PRODUCT_LINE.
 */
#ifndef JSW_PRODUCT_LINES_H
#define JSW_PRODUCT_LINES_H

/** X(prefix, key, 1 for lines without ink, manufacturer) */
#define JSW_PRODUCT_LINES(X)                      \
    X("ql", "QuillonInkjet", 0, "Quillon")        \
    X("qp", "QuillonPhoto", 0, "Quillon")         \
    X("qm", "QuillonMultifunction", 0, "Quillon") \
    X("qz", "QuillonLaser", 1, "Quillon")         \
    X("qs", "QuillonScanner", 1, "Quillon")       \
    X("bn", "BrennickInkjet", 0, "Brennick")      \
    X("bz", "BrennickLaser", 1, "Brennick")       \
    X("cv", "CorvanelInkjet", 0, "Corvanel")      \
    X("cz", "CorvanelLaser", 1, "Corvanel")       \
    X("dh", "DunhollowInkjet", 0, "Dunhollow")    \
    X("ds", "DunhollowScanner", 1, "Dunhollow")   \
    X("fm", "FenmereInkjet", 0, "Fenmere")        \
    X("fz", "FenmereLaser", 1, "Fenmere")         \
    X("tw", "TarnwoldInkjet", 0, "Tarnwold")      \
    X("oi", "OemInkjet", 0, "")                   \
    X("ol", "OemLaser", 1, "")

/** The key of hosts that belong to no product line. */
#define JSW_NO_PRODUCT_LINE "Quillon Tools"

#endif /* JSW_PRODUCT_LINES_H */
