// The messages of the input checks and the calculation steps.
#include <algorithm>

#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAttention = 1;
constexpr int kWarning = 2;
constexpr int kStop = 3;

/// One message; %1 is where the caller's text goes.
struct Entry {
  int number;
  int symbol;
  QString text;
};

const Entry& catalogueEntry(int number) {
  static const std::array kCatalogue{
      Entry{1, kStop,
            joinedLines({u"LF- und pH- Wert passen nicht zusammen !"_s,
                         u"Bei dem eingegebenen pH-Wert muss    "_s,
                         u" LF  mind. %1 µS/cm  sein !"_s})},
      Entry{2, kStop,
            joinedLines({u" Der eingegebene Wert muss    "_s,
                         u" größer als Null sein !"_s,
                         {},
                         u"%1 >0 "_s})},
      Entry{3, kAttention,
            joinedLines({u"Die Eingabe überschreitet die  "_s,
                         u"die zulässige Eingabegrenze !  "_s,
                         {},
                         u"Eingabe-Bereich: %1"_s})},
      Entry{
          4, kStop,
          joinedLines(
              {u" Der Ks8,2 - Wert  muss  kleiner sein"_s, {}, u" als 0,5 x  Ks4,3 - Wert ! "_s})},
      Entry{5, kStop,
            joinedLines({u" Der Ks4,3-Wert muss größer sein"_s,
                         u" wie der Ks8,2-Wert. "_s,
                         {},
                         u" mind: %1"_s})},
      Entry{6, kAttention,
            joinedLines({u"Die Eingabe überschreitet die  "_s,
                         u"die zulässige Eingabegrenze !  "_s,
                         {},
                         u"Eingabe-Bereich: %1"_s,
                         u" negative Ks8,2 Werte als Kb8,2 eingeben !"_s})},
      Entry{7, kWarning,
            joinedLines({u" Der Wert für Gesamthärte / SE ist kleiner "_s,
                         u" als der vorhandene Wert  > Calcium <  !!!  "_s})},
      Entry{8, kWarning,
            joinedLines({u" Der Wert für Gesamthärte / SE ist kleiner "_s,
                         u" als der vorhandene Wert  > Magnesium <  !!!"_s})},
      Entry{9, kWarning,
            joinedLines({u" Der eingegebene Wert für Calcium / Ca ist größer "_s,
                         u" als der vorhandene Wert  > Gesamthärte <  !!! "_s})},
      Entry{10, kWarning,
            joinedLines({u" Der eingegebene Wert für Magnesium / Mg ist größer "_s,
                         u" als der vorhandene Wert  > Gesamthärte <  !!!"_s})},
      Entry{11, kWarning,
            joinedLines({u" Bei vorgegebenem KS8,2  muss der    "_s,
                         u" pH-Wert niedriger sein !!!"_s,
                         {},
                         u" pH <%1"_s})},
      Entry{12, kWarning,
            joinedLines({u" Bei vorgegebenem pH-Wert muss der   "_s,
                         u" Wert für  Ks8,2  größer sein !!!"_s,
                         {},
                         u"  Ks8,2 >=%1"_s})},
      Entry{13, kStop,
            joinedLines({u" Kb8,2  und  Ks8,2  können nicht"_s,
                         u" zusammen  vorliegen !"_s,
                         {},
                         u" zuletzt eingegebener Wert wird gelöscht !"_s})},
  };
  const auto* entry = std::ranges::find(kCatalogue, number, &Entry::number);
  if (entry == kCatalogue.end()) {
    throw RuntimeError(ErrorNumber::kInvalidCall, QString::number(number));
  }
  return *entry;
}

}  // namespace

void subcalc::message(int& number, const QString& text) {
  const Entry& entry = catalogueEntry(number);
  number = questions_.ask({.text = QString(entry.text).replace("%1"_L1, text),
                           .title = u"Eingabefehler"_s,
                           .symbol = entry.symbol});
}

void subcalc::show(int number, const QString& text) {
  message(number, text);
}

}  // namespace calvora
