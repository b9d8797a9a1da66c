/**
 * @file Strings.h
 * What the prompt says. Each language is one file in strings/, which needs no entry anywhere else.
 * Texts are UTF-8; {0}, {1} are places for values, "&" marks the access key of a label.
 */
#pragma once

#include "window/ui/Language.h"

namespace jsw::prompt {

using ui::Plural;

struct Strings {
    const char* title; /**< of the dialog */
    const char* continueLabel;
    const char* cancelLabel;

    /* What the user is asked to do */
    const char* turnStack;
    const char* loadPaper;
    const char* changeCartridge;
    const char* closeCover;
    const char* removeJam;
    const char* attention; /**< anything else; {0} its number */
    Plural pages;          /**< behind turnStack; {0} number of pages */
    Plural onSheets;       /**< behind pages; {0} number of sheets */

    /* The driver's news */
    const char* paperLoaded;
    const char* coverOpen;
    const char* coverClosed;
    const char* printerBusy;
    const char* printerReady;
};

using Language = ui::Language<Strings>;

}  // namespace jsw::prompt
