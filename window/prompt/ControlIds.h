/**
 * @file ControlIds.h
 * How other programs (a demonstration, a test) find the prompt and answer it, and which messages
 * the driver can hand it while it is up.
 *
 * The prompt is an ordinary dialog: class "#32770", found by its title. GetDlgItem finds a control
 * by its id; send or post the dialog WM_COMMAND with a button's id to press it. All controls answer
 * WM_GETTEXT.
 */
#ifndef JSW_SAMPLE_LEGACY_CONTROL_IDS_H
#define JSW_SAMPLE_LEGACY_CONTROL_IDS_H

/** Title of the dialog in English; one exists per prompt. */
#define JSW_LEGACY_TITLE "Printing: your help is needed"

/* Controls */
#define JSW_LEGACY_CONTINUE 1   /**< IDOK, the default button: Enter presses it */
#define JSW_LEGACY_CANCEL 2     /**< IDCANCEL: Escape and the close box press it, too */
#define JSW_LEGACY_PRINTER 1001 /**< which printer asks */
#define JSW_LEGACY_TEXT 1002    /**< what is to be done */
#define JSW_LEGACY_NOTE 1003    /**< the driver's latest news; empty at first */

/**
 * What JSWPostDlgMsg takes: these numbers in the place of the pointer. A pointer of somebody else's
 * making is therefore never followed; a number that is not here, null included, does nothing.
 */
enum JswLegacyMessage {
    JSW_LEGACY_PRESS_CONTINUE = 1, /**< as if the user had pressed the button */
    JSW_LEGACY_PRESS_CANCEL = 2,
    JSW_LEGACY_CLOSE = 3, /**< takes the prompt away unanswered */
    /* News, shown in the dialog */
    JSW_LEGACY_PAPER_LOADED = 4,
    JSW_LEGACY_COVER_OPEN = 5,
    JSW_LEGACY_COVER_CLOSED = 6,
    JSW_LEGACY_PRINTER_BUSY = 7,
    JSW_LEGACY_PRINTER_READY = 8
};

#endif /* JSW_SAMPLE_LEGACY_CONTROL_IDS_H */
