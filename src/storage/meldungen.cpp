// The messages that the main window, the data folder window and the company line window share.
#include "storage/meldungen.h"

#include <algorithm>
#include <array>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// One message; %1 is where the caller's text goes.
struct Entry {
  int code;
  QString title;
  int buttons;
  int symbol;
  QString text;
};

const Entry& catalogueEntry(int code) {
  static const Entry kNothing{0, {}, button::kOk, 0, {}};
  static const std::array kCatalogue{
      Entry{meldung::kPfadFehlt, u"Fehler Datenpfad"_s, button::kOk, 1,
            joinedLines({u"Der Voreingestellte Pfad existiert nicht !"_s,
                         {},
                         u"Stellen Sie einen Pfad ein, wo die Daten"_s,
                         u"gespeichert werden sollen."_s})},
      Entry{meldung::kPfadBestätigen, u"Datenpfad"_s, button::kOk + button::kAbbrechen, 4,
            joinedLines({u"folgender Pfad wird zur Ablage der                   "_s,
                         u"Daten gespeichert:"_s,
                         {},
                         u"%1"_s})},
      Entry{meldung::kPfadGespeichert, u"Datenpfad"_s, button::kOk, 1,
            joinedLines({u" Der eingegebene Pfad wurde als künftiger "_s,
                         u"Speicherort  gespeichert !"_s})},
      Entry{meldung::kDruckzeileGespeichert, u"Druck-Zeile"_s, button::kOk, 1,
            u" Daten wurden gespeichert !"_s},
      Entry{meldung::kVorherSpeichern, u"Daten sichern"_s,
            button::kJa + button::kNein + button::kAbbrechen, 1, u" Daten vorher speichern ?"_s},
      Entry{meldung::kDruckzeileZuLang, u"Druckzeile Firma"_s, button::kOk, 2,
            joinedLines({u"Der eingegebne Text ist zu lang"_s,
                         u" Es können max. 115 Zeichen (inkl. Leerzeichen)"_s,
                         u"eingegeben werden !"_s})},
      Entry{meldung::kNichtsZuSpeichern, u"Datei"_s, button::kOk, 3,
            joinedLines({u"Es sind keine Daten zum speichern  "_s, u" vorhanden ! "_s})},
      Entry{meldung::kNichtsZuDrucken, u"Datei"_s, button::kOk, 3,
            joinedLines({u"Es sind keine Daten zum drucken  "_s, u" vorhanden ! "_s})},
  };
  const auto* entry = std::ranges::find(kCatalogue, code, &Entry::code);
  return entry == kCatalogue.end() ? kNothing : *entry;
}

}  // namespace

int katalogMeldung(Questions& questions, int code, const QString& extra) {
  const Entry& entry = catalogueEntry(code);
  return questions.ask({.text = QString(entry.text).replace("%1"_L1, extra),
                        .buttons = entry.buttons,
                        .title = entry.title,
                        .symbol = entry.symbol});
}

}  // namespace calvora
