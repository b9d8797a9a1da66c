/**
 * @file Strings.h
 * The prompt's texts. Each language is one file in strings/, which needs no registration elsewhere.
 * Texts are UTF-8; {0}, {1} are placeholders, "&" marks a label's access key.
 */
#pragma once

#include "window/ui/Language.h"

namespace jsw::prompt {

using ui::Plural;

struct Strings {
    const char* title; /**< of the dialog */
    const char* continueLabel;
    const char* cancelLabel;

    /* The requests to the user */
    const char* turnStack;
    const char* loadPaper;
    const char* changeCartridge;
    const char* closeCover;
    const char* removeJam;
    const char* attention; /**< anything else; {0} its number */
    Plural pages;          /**< after turnStack; {0} number of pages */
    Plural onSheets;       /**< after pages; {0} number of sheets */

    /* The driver's notes */
    const char* paperLoaded;
    const char* coverOpen;
    const char* coverClosed;
    const char* printerBusy;
    const char* printerReady;
};

using Language = ui::Language<Strings>;

}  // namespace jsw::prompt
