#include "window/prompt/Strings.h"

namespace jsw::prompt {
namespace {

const Language german(
    0x07, "de",
    {
        .title = "Drucken: Ihre Hilfe wird gebraucht",
        .continueLabel = "&Weiter",
        .cancelLabel = "A&bbrechen",

        .turnStack = "Drehen Sie den bedruckten Stapel um und legen Sie ihn wieder ins "
                     "Papierfach, damit die Rückseiten gedruckt werden.",
        .loadPaper = "Das Papierfach ist leer. Legen Sie Papier ein.",
        .changeCartridge = "Eine Patrone ist leer. Setzen Sie eine neue ein.",
        .closeCover = "Schließen Sie die Abdeckung des Druckers.",
        .removeJam = "Entfernen Sie das gestaute Papier.",
        .attention = "Der Drucker braucht Ihre Aufmerksamkeit ({0}).",
        .pages = {"1 Seite", "{0} Seiten"},
        .onSheets = {" auf 1 Blatt.", " auf {0} Blättern."},

        .paperLoaded = "Papier ist eingelegt.",
        .coverOpen = "Die Abdeckung ist offen.",
        .coverClosed = "Die Abdeckung ist geschlossen.",
        .printerBusy = "Der Drucker ist beschäftigt.",
        .printerReady = "Der Drucker ist bereit.",
    });

}  // namespace
}  // namespace jsw::prompt
