/**
 * @file PromptIds.h
 * How other programs (a demonstration, a test) find and answer the prompt, and the messages that
 * the driver can pass to an open prompt.
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
#define JSW_LEGACY_PRINTER 1001 /**< the printer */
#define JSW_LEGACY_TEXT 1002    /**< what is to be done */
#define JSW_LEGACY_NOTE 1003    /**< the driver's latest note; empty at first */

/**
 * The messages for JSWPostDlgMsg: these numbers instead of a pointer, so that no foreign pointer is
 * ever dereferenced. Any other value, including null, does nothing.
 */
enum JswLegacyMessage {
    JSW_LEGACY_PRESS_CONTINUE = 1, /**< as if the user had pressed the button */
    JSW_LEGACY_PRESS_CANCEL = 2,
    JSW_LEGACY_CLOSE = 3, /**< closes the prompt unanswered */
    /* Notes, shown in the dialog */
    JSW_LEGACY_PAPER_LOADED = 4,
    JSW_LEGACY_COVER_OPEN = 5,
    JSW_LEGACY_COVER_CLOSED = 6,
    JSW_LEGACY_PRINTER_BUSY = 7,
    JSW_LEGACY_PRINTER_READY = 8
};

#endif /* JSW_SAMPLE_LEGACY_CONTROL_IDS_H */
