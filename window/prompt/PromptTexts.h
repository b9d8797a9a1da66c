/**
 * @file PromptTexts.h
 * What the prompt says, in English; language files have it in others (docs/translating.md). UTF-8;
 * {0}, {1} are places for values, "&" marks the access key of a label.
 */
#pragma once

#include "common/LanguageFile.h"
#include "window/prompt/PromptIds.h"

namespace jsw::window {

#define JSW_PROMPT_TEXTS(TEXT)                                                       \
    TEXT(title, JSW_LEGACY_TITLE)                                                    \
    TEXT(continueLabel, "C&ontinue")                                                 \
    TEXT(cancelLabel, "&Cancel")                                                     \
                                                                                     \
    /* What the user is asked to do */                                               \
    TEXT(turnStack,                                                                  \
         "Turn the printed stack over and put it back into the paper tray to print " \
         "the second side.")                                                         \
    TEXT(loadPaper, "The paper tray is empty. Load paper.")                          \
    TEXT(changeCartridge, "A cartridge is empty. Put in a new one.")                 \
    TEXT(closeCover, "Close the cover of the printer.")                              \
    TEXT(removeJam, "Remove the jammed paper.")                                      \
    TEXT(attention, "The printer needs your attention ({0}).") /* {0} a number */    \
    TEXT(stack, "{0} on {1}.") /* {0} pages, {1} sheets: "6 pages on 3 sheets." */   \
    TEXT(pagesOne, "{0} page")                                                       \
    TEXT(pages, "{0} pages")                                                         \
    TEXT(sheetsOne, "{0} sheet")                                                     \
    TEXT(sheets, "{0} sheets")                                                       \
                                                                                     \
    /* The driver's news */                                                          \
    TEXT(paperLoaded, "Paper has been loaded.")                                      \
    TEXT(coverOpen, "The cover is open.")                                            \
    TEXT(coverClosed, "The cover is closed.")                                        \
    TEXT(printerBusy, "The printer is busy.")                                        \
    TEXT(printerReady, "The printer is ready.")

JSW_TEXTS(PromptTexts, "prompt", JSW_PROMPT_TEXTS)

}  // namespace jsw::window
