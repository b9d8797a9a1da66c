/**
 * @file WindowTexts.h
 * What the job window says, in English; language files have it in others (docs/translating.md).
 * UTF-8; {0}, {1} are places for values, "&" marks the access key of a label.
 */
#pragma once

#include "common/LanguageFile.h"
#include "common/Phrase.h"
#include "window/view/BillboardContent.h"

namespace jsw::window {

#define JSW_WINDOW_TEXTS(TEXT)                                                              \
    TEXT(thousands, ",") /* between groups of digits */                                     \
    TEXT(percent, "{0}%")                                                                   \
                                                                                            \
    TEXT(windowTitle, "Printing {0}")                                                       \
    TEXT(untitled, "Untitled document")                                                     \
    TEXT(somePrinter, "Printer") /* one without a name */                                   \
    TEXT(simulated, "Simulated data")                                                       \
    TEXT(closeJob, "Close &job") /* entry of the system menu */                             \
                                                                                            \
    TEXT(printing, "Printing")              /* the number of pages is not known */          \
    TEXT(printingPage, "Printing page {0}") /* the same */                                  \
    TEXT(startingOne, "Starting: {0} page") /* of one page */                               \
    TEXT(starting, "Starting: {0} pages")                                                   \
    TEXT(noPages, "Nothing to print: the document has no pages")                            \
    TEXT(pageOf, "Page {0} of {1}")                                                         \
    TEXT(copyOf, "copy {0} of {1}") /* follows the page */                                  \
    TEXT(pageOnly, "Page {0}")      /* of a total that is not known or wrong */             \
    TEXT(copyOnly, "copy {0}")                                                              \
    TEXT(cancelling, "Cancelling\xE2\x80\xA6")                                              \
    TEXT(waitingForPrinter, "Waiting for the printer") /* after cancelling, for the time */ \
                                                                                            \
    TEXT(timeUnknown, "Time remaining not known")                                           \
    TEXT(finishing, "Finishing")                                                            \
    TEXT(secondsLeft, "About {0} s remaining")                                              \
    TEXT(minutesLeft, "About {0} min {1} s remaining")                                      \
    TEXT(hoursLeft, "About {0} h {1} min remaining")                                        \
                                                                                            \
    TEXT(inkLoading, "Reading the ink levels\xE2\x80\xA6") /* nobody has told yet */        \
    TEXT(inkUnknown, "Ink levels are not known")                                            \
    TEXT(cartridge, "Cartridge {0}")                                                        \
    TEXT(cartridgeOfPart, "Cartridge {0}, no. {1}") /* {1} its part number */               \
    TEXT(inReserve, "{0} (reserve)")                /* {0} the cartridge */                 \
    TEXT(levelUnknown, "not known")                                                         \
    TEXT(levelLow, "{0} low")   /* {0} the level */                                         \
    TEXT(inkName, "Ink levels") /* what the row is, for screen readers */                   \
    TEXT(progressName, "Progress")                                                          \
                                                                                            \
    TEXT(previous, "&Previous")                                                             \
    TEXT(current, "C&urrent")                                                               \
    TEXT(next, "&Next")                                                                     \
    TEXT(inkStatus, "&Ink status")                                                          \
    TEXT(updateAutomatically, "Update &automatically")                                      \
    TEXT(specialMessages, "&Show special messages")                                         \
    TEXT(cancel, "&Cancel printing")                                                        \
    TEXT(cancelled, "Cancelling\xE2\x80\xA6") /* on the button, once it is pressed */       \
                                                                                            \
    TEXT(cancelQuestionOne, "{0} page has not been printed. Cancel printing?")              \
    TEXT(cancelQuestion, "{0} pages have not been printed. Cancel printing?")               \
    TEXT(cancelQuestionUnknown, "Pages may be left. Cancel printing?")                      \
    TEXT(cancelYes, "&Cancel printing")                                                     \
    TEXT(cancelNo, "&Keep printing")                                                        \
    TEXT(closeNotice, "Closing this window does not cancel printing.")                      \
    TEXT(closeYes, "C&lose window")                                                         \
    TEXT(closeNo, "&Keep open")                                                             \
                                                                                            \
    TEXT(emptyTitle, "Your document is being printed") /* there is no page to show */       \
    TEXT(emptyText, "There is no page to show for this print job.")                         \
    TEXT(brokenTitle, "This page cannot be shown")                                          \
    TEXT(brokenText, "Printing is not affected.")                                           \
    TEXT(brokenReason, "Reason: {0}.")                                                      \
    JSW_PAGE_PROBLEMS(TEXT)

JSW_TEXTS(WindowTexts, "window", JSW_WINDOW_TEXTS)

}  // namespace jsw::window
