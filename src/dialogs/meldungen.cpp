// The messages of the main window, the data folder window and the company line window.
#include "dialogs/meldungen.h"

#include <array>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

std::span<const CatalogueMessage> catalogue() {
  using namespace meldung;
  static const std::array kCatalogue{
      catalogueEntry(kPfadFehlt, u"Fehler Datenpfad"_s, Button::kOk, Symbol::kAttention,
                     {u"Der Voreingestellte Pfad existiert nicht !"_s,
                      {},
                      u"Stellen Sie einen Pfad ein, wo die Daten"_s,
                      u"gespeichert werden sollen."_s}),
      catalogueEntry(kPfadBestätigen, u"Datenpfad"_s, Button::kOk | Button::kAbbrechen,
                     Symbol::kDone,
                     {u"folgender Pfad wird zur Ablage der                   "_s,
                      u"Daten gespeichert:"_s,
                      {},
                      u"%1"_s}),
      catalogueEntry(
          kPfadGespeichert, u"Datenpfad"_s, Button::kOk, Symbol::kAttention,
          {u" Der eingegebene Pfad wurde als künftiger "_s, u"Speicherort  gespeichert !"_s}),
      catalogueEntry(kDruckzeileGespeichert, u"Druck-Zeile"_s, Button::kOk, Symbol::kAttention,
                     {u" Daten wurden gespeichert !"_s}),
      catalogueEntry(kVorherSpeichern, u"Daten sichern"_s,
                     Button::kJa | Button::kNein | Button::kAbbrechen, Symbol::kAttention,
                     {u" Daten vorher speichern ?"_s}),
      catalogueEntry(
          kDruckzeileZuLang, u"Druckzeile Firma"_s, Button::kOk, Symbol::kWarning,
          {u"Der eingegebne Text ist zu lang"_s,
           u" Es können max. 115 Zeichen (inkl. Leerzeichen)"_s, u"eingegeben werden !"_s}),
      catalogueEntry(kNichtsZuSpeichern, u"Datei"_s, Button::kOk, Symbol::kStop,
                     {u"Es sind keine Daten zum speichern  "_s, u" vorhanden ! "_s}),
      catalogueEntry(kNichtsZuDrucken, u"Datei"_s, Button::kOk, Symbol::kStop,
                     {u"Es sind keine Daten zum drucken  "_s, u" vorhanden ! "_s}),
      catalogueEntry(
          kWiederherstellen, u"Wiederherstellung"_s, Button::kJa | Button::kNein, Symbol::kQuestion,
          {u" Eine nicht gespeicherte Analyse vom %1 ist vorhanden. Wiederherstellen ? "_s}),
      catalogueEntry(kTeilWiederherstellen, u"Wiederherstellung"_s, Button::kJa | Button::kNein,
                     Symbol::kQuestion,
                     {u" Eine nicht gespeicherte Analyse vom %1 ist vorhanden,"_s,
                      u" aber nicht vollständig lesbar. Wiederherstellen ? "_s}),
      catalogueEntry(kDateiFehlt, u"Datei"_s, Button::kOk, Symbol::kWarning,
                     {u" Diese Datei gibt es nicht :"_s, u" %1"_s}),
      catalogueEntry(kNichtGeladen, u"Datei"_s, Button::kOk, Symbol::kWarning,
                     {u" Nicht geladen wurde :"_s,
                      u"%1"_s,
                      {},
                      u" Das Hauptfenster lädt eine Analyse (.cva) oder ein Projekt (.cvp),"_s,
                      u" die Übersicht mehrere Analysen oder ein Projekt."_s}),
      catalogueEntry(kNichtGeöffnet, u"Datei"_s, Button::kOk, Symbol::kWarning,
                     {u" Diese Datei konnte nicht geöffnet werden :"_s, u" %1"_s}),
      catalogueEntry(kHandbuch, u"Handbuch"_s, Button::kOk, Symbol::kWarning,
                     {u" Das Handbuch konnte nicht geöffnet werden ! "_s, u" %1"_s}),
  };
  return kCatalogue;
}

}  // namespace

Message katalogMeldung(int code, const QString& extra) {
  return catalogueMessage(catalogue(), code, extra);
}

}  // namespace calvora
