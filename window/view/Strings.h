/**
 * @file Strings.h
 * The job window's texts. Each language is one file in strings/, which needs no registration
 * elsewhere. Texts are UTF-8; {0}, {1} are placeholders, "&" marks a label's access key.
 */
#pragma once

#include "window/ui/Language.h"
#include "window/view/BillboardContent.h"

#include <array>

namespace jsw::view {

using ui::Plural;

struct Strings {
    const char* thousands; /**< between groups of digits */
    const char* percent;   /**< {0} a number */

    const char* windowTitle; /**< {0} the document */
    const char* untitled;    /**< a document without a name */
    const char* somePrinter; /**< a printer without a name */
    const char* simulated;   /**< the data is simulated */
    const char* closeJob;    /**< entry of the system menu */

    const char* printing;     /**< the number of pages is unknown */
    const char* printingPage; /**< the same; {0} the page */
    Plural starting;          /**< before the first page; {0} number of pages */
    const char* noPages;      /**< a document of no pages */
    const char* pageOf;       /**< {0} page, {1} pages */
    const char* copyOf;       /**< follows pageOf; {0} copy, {1} copies */
    const char* pageOnly;     /**< {0} page, of an unknown or wrong total */
    const char* copyOnly;
    const char* cancelling;
    const char* waitingForPrinter; /**< instead of the time, after cancelling */

    const char* timeUnknown;
    const char* finishing;
    const char* secondsLeft; /**< {0} seconds */
    const char* minutesLeft; /**< {0} minutes, {1} seconds */
    const char* hoursLeft;   /**< {0} hours, {1} minutes */

    const char* inkLoading; /**< no ink data yet */
    const char* inkUnknown; /**< of all cartridges */
    const char* cartridge;  /**< {0} number */
    const char* cartridgeInReserve;
    const char* levelUnknown;
    const char* levelLow; /**< {0} the level */
    const char* inkName;  /**< the name of the row of levels, for screen readers */
    const char* progressName;

    const char* previous;
    const char* current;
    const char* next;
    const char* inkStatus;
    const char* updateAutomatically;
    const char* specialMessages;
    const char* cancel;
    const char* cancelled; /**< on the button, after it was pressed */

    Plural cancelQuestion;             /**< {0} pages that remain */
    const char* cancelQuestionUnknown; /**< the number is unknown */
    const char* cancelYes;
    const char* cancelNo;
    const char* closeNotice; /**< closing does not cancel */
    const char* closeYes;
    const char* closeNo;

    const char* emptyTitle; /**< there is no page to show */
    const char* emptyText;
    const char* brokenTitle; /**< a page cannot be shown */
    const char* brokenText;
    const char* brokenReason;                    /**< {0} the reason, one of problems */
    std::array<const char*, kProblems> problems; /**< by their numbers; the first is none */
};

using Language = ui::Language<Strings>;

}  // namespace jsw::view
