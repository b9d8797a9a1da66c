#include "window/prompt/ControlIds.h"
#include "window/prompt/Strings.h"

namespace jsw::prompt {
namespace {

const Language english(
    ui::kEnglish, "en",
    {
        .title = JSW_LEGACY_TITLE,
        .continueLabel = "C&ontinue",
        .cancelLabel = "&Cancel",

        .turnStack = "Turn the printed stack over and put it back into the paper tray to print "
                     "the second side.",
        .loadPaper = "The paper tray is empty. Load paper.",
        .changeCartridge = "A cartridge is empty. Put in a new one.",
        .closeCover = "Close the cover of the printer.",
        .removeJam = "Remove the jammed paper.",
        .attention = "The printer needs your attention ({0}).",
        .pages = {"1 page", "{0} pages"},
        .onSheets = {" on 1 sheet.", " on {0} sheets."},

        .paperLoaded = "Paper has been loaded.",
        .coverOpen = "The cover is open.",
        .coverClosed = "The cover is closed.",
        .printerBusy = "The printer is busy.",
        .printerReady = "The printer is ready.",
    });

}  // namespace
}  // namespace jsw::prompt
