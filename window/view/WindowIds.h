/**
 * @file WindowIds.h
 * How other programs (a demonstration, a test) find the job window and press its controls.
 *
 * The window is found by its class name; GetDlgItem finds a control by its id. To press one, send
 * or post the window WM_COMMAND with the id, or the control BM_CLICK. To raise the entry of the
 * system menu, send the window WM_SYSCOMMAND with its id. A disabled control ignores both.
 *
 * All controls answer WM_GETTEXT: the ink bars with a summary of the levels, the billboard with the
 * title of the page that it shows.
 */
#ifndef JSW_SAMPLE_VIEW_CONTROL_IDS_H
#define JSW_SAMPLE_VIEW_CONTROL_IDS_H

/** Class name of the window; one window exists per running job. */
#define JSW_SAMPLE_VIEW_CLASS "JswSampleView"
#define JSW_SAMPLE_VIEW_CLASS_W L"JswSampleView"

enum JswSampleViewControl {
    /* Texts and pictures */
    JSW_VIEW_PRINTER_NAME = 1001,
    JSW_VIEW_JOB_NAME = 1002,
    JSW_VIEW_SIMULATED = 1003, /**< visible only for simulated data */
    JSW_VIEW_PROGRESS_TEXT = 1004,
    JSW_VIEW_TIME_TEXT = 1005,
    JSW_VIEW_PROGRESS_BAR = 1006,
    JSW_VIEW_INK = 1007,
    JSW_VIEW_BILLBOARD = 1008,
    JSW_VIEW_PAGE_SCROLL = 1009, /**< a scroll bar, visible when the page does not fit */

    /* Billboard navigation */
    JSW_VIEW_PREVIOUS = 1020,
    JSW_VIEW_CURRENT = 1021,
    JSW_VIEW_NEXT = 1022,
    JSW_VIEW_INK_STATUS = 1023,

    /* The job and the user's choices */
    JSW_VIEW_CANCEL = 1030,
    JSW_VIEW_UPDATE_AUTOMATICALLY = 1031, /**< a check box */
    JSW_VIEW_SPECIAL_MESSAGES = 1032,     /**< a check box */

    /* The question in the last row, replacing the choices; hidden if there is none */
    JSW_VIEW_QUESTION = 1034, /**< a text */
    JSW_VIEW_YES = 1035,
    JSW_VIEW_NO = 1036, /**< the default */

    /* Buttons and links of the page shown: the first, second, ... has this id, this id + 1, ... */
    JSW_VIEW_CONTENT_BUTTON = 1040,
    JSW_VIEW_CONTENT_LINK = 1050,

    /* Entry of the system menu */
    JSW_VIEW_CLOSE_JOB = 0x1010
};

#endif /* JSW_SAMPLE_VIEW_CONTROL_IDS_H */
