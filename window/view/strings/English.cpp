#include "window/view/Strings.h"

namespace jsw::view {
namespace {

const Language english(ui::kEnglish, "en",
                       {
                           .thousands = ",",
                           .percent = "{0}%",

                           .windowTitle = "Printing {0}",
                           .untitled = "Untitled document",
                           .somePrinter = "Printer",
                           .simulated = "Simulated data",
                           .closeJob = "Close &job",

                           .printing = "Printing",
                           .printingPage = "Printing page {0}",
                           .starting = {"Starting: 1 page", "Starting: {0} pages"},
                           .noPages = "Nothing to print: the document has no pages",
                           .pageOf = "Page {0} of {1}",
                           .copyOf = "copy {0} of {1}",
                           .pageOnly = "Page {0}",
                           .copyOnly = "copy {0}",
                           .cancelling = "Cancelling\xE2\x80\xA6",
                           .waitingForPrinter = "Waiting for the printer",

                           .timeUnknown = "Time remaining not known",
                           .finishing = "Finishing",
                           .secondsLeft = "About {0} s remaining",
                           .minutesLeft = "About {0} min {1} s remaining",
                           .hoursLeft = "About {0} h {1} min remaining",

                           .inkLoading = "Reading the ink levels\xE2\x80\xA6",
                           .inkUnknown = "Ink levels are not known",
                           .cartridge = "Cartridge {0}",
                           .cartridgeInReserve = "Cartridge {0} (reserve)",
                           .levelUnknown = "not known",
                           .levelLow = "{0} low",
                           .inkName = "Ink levels",
                           .progressName = "Progress",

                           .previous = "&Previous",
                           .current = "C&urrent",
                           .next = "&Next",
                           .inkStatus = "&Ink status",
                           .updateAutomatically = "Update &automatically",
                           .specialMessages = "&Show special messages",
                           .cancel = "&Cancel printing",
                           .cancelled = "Cancelling\xE2\x80\xA6",

                           .cancelQuestion = {"1 page has not been printed. Cancel printing?",
                                              "{0} pages have not been printed. Cancel printing?"},
                           .cancelQuestionUnknown = "Pages may be left. Cancel printing?",
                           .cancelYes = "&Cancel printing",
                           .cancelNo = "&Keep printing",
                           .closeNotice = "Closing this window does not cancel printing.",
                           .closeYes = "C&lose window",
                           .closeNo = "&Keep open",

                           .emptyTitle = "Your document is being printed",
                           .emptyText = "There is no page to show for this print job.",
                           .brokenTitle = "This page cannot be shown",
                           .brokenText = "Printing is not affected.",
                           .brokenReason = "Reason: {0}.",
                           .problems =
                               {
                                   "",
                                   "the file cannot be read",
                                   "the file is too large",
                                   "the file is not a text file",
                                   "the file has no title",
                                   "a line before the first empty line has no \"=\"",
                                   "the title is too long",
                                   "a paragraph is too long",
                                   "there are too many paragraphs",
                                   "a button is not of the form \"Label | ACTION | number\"",
                                   "there are too many buttons",
                                   "a link is not of the form \"[Label | ACTION | number]\"",
                                   "there are too many links",
                               },
                       });

}  // namespace
}  // namespace jsw::view
