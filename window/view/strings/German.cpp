#include "window/view/Strings.h"

namespace jsw::view {
namespace {

const Language german(0x07, "de",
                      {
                          .thousands = ".",
                          .percent = "{0}\xC2\xA0%",

                          .windowTitle = "{0} wird gedruckt",
                          .untitled = "Dokument ohne Namen",
                          .somePrinter = "Drucker",
                          .simulated = "Simulierte Daten",
                          .closeJob = "Auf&trag schließen",

                          .printing = "Wird gedruckt",
                          .printingPage = "Seite {0} wird gedruckt",
                          .starting = {"Beginn: 1 Seite", "Beginn: {0} Seiten"},
                          .noPages = "Nichts zu drucken: das Dokument hat keine Seiten",
                          .pageOf = "Seite {0} von {1}",
                          .copyOf = "Exemplar {0} von {1}",
                          .pageOnly = "Seite {0}",
                          .copyOnly = "Exemplar {0}",
                          .cancelling = "Wird abgebrochen\xE2\x80\xA6",
                          .waitingForPrinter = "Warten auf den Drucker",

                          .timeUnknown = "Restzeit nicht bekannt",
                          .finishing = "Gleich fertig",
                          .secondsLeft = "Noch etwa {0} s",
                          .minutesLeft = "Noch etwa {0} min {1} s",
                          .hoursLeft = "Noch etwa {0} h {1} min",

                          .inkLoading = "Tintenstände werden gelesen\xE2\x80\xA6",
                          .inkUnknown = "Die Tintenstände sind nicht bekannt",
                          .cartridge = "Patrone {0}",
                          .cartridgeInReserve = "Patrone {0} (Reserve)",
                          .levelUnknown = "nicht bekannt",
                          .levelLow = "{0} niedrig",
                          .inkName = "Tintenstände",
                          .progressName = "Fortschritt",

                          .previous = "&Zurück",
                          .current = "A&ktuell",
                          .next = "&Weiter",
                          .inkStatus = "&Tintenstand",
                          .updateAutomatically = "A&utomatisch aktualisieren",
                          .specialMessages = "Be&sondere Hinweise zeigen",
                          .cancel = "Druck a&bbrechen",
                          .cancelled = "Wird abgebrochen\xE2\x80\xA6",

                          .cancelQuestion = {"1 Seite ist noch nicht gedruckt. Druck abbrechen?",
                                             "{0} Seiten sind noch nicht gedruckt. Druck "
                                             "abbrechen?"},
                          .cancelQuestionUnknown = "Es können noch Seiten fehlen. Druck abbrechen?",
                          .cancelYes = "Druck a&bbrechen",
                          .cancelNo = "W&eiterdrucken",
                          .closeNotice = "Das Schließen des Fensters bricht den Druck nicht ab.",
                          .closeYes = "Fenster s&chließen",
                          .closeNo = "&Offen lassen",

                          .emptyTitle = "Ihr Dokument wird gedruckt",
                          .emptyText = "Zu diesem Druckauftrag gibt es keine Seite zu zeigen.",
                          .brokenTitle = "Diese Seite kann nicht gezeigt werden",
                          .brokenText = "Der Druck ist davon nicht betroffen.",
                          .brokenReason = "Grund: {0}.",
                          .problems =
                              {
                                  "",
                                  "die Datei kann nicht gelesen werden",
                                  "die Datei ist zu groß",
                                  "die Datei ist keine Textdatei",
                                  "die Datei hat keinen Titel",
                                  "in einer Zeile vor der ersten leeren fehlt \"=\"",
                                  "der Titel ist zu lang",
                                  "ein Absatz ist zu lang",
                                  "es sind zu viele Absätze",
                                  "ein Knopf hat nicht die Form \"Text | AKTION | Nummer\"",
                                  "es sind zu viele Knöpfe",
                                  "ein Link hat nicht die Form \"[Text | AKTION | Nummer]\"",
                                  "es sind zu viele Links",
                              },
                      });

}  // namespace
}  // namespace jsw::view
