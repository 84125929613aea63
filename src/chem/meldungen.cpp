// The messages of the input checks and the calculation steps.
#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

CatalogueMessage entry(int number, Symbol symbol, std::initializer_list<QString> lines) {
  return catalogueEntry(number, u"Eingabefehler"_s, Button::kOk, symbol, lines);
}

std::span<const CatalogueMessage> catalogue() {
  static const std::array kCatalogue{
      entry(1, Symbol::kStop,
            {u"LF- und pH- Wert passen nicht zusammen !"_s,
             u"Bei dem eingegebenen pH-Wert muss    "_s, u" LF  mind. %1 µS/cm  sein !"_s}),
      entry(2, Symbol::kStop,
            {u" Der eingegebene Wert muss    "_s, u" größer als Null sein !"_s, {}, u"%1 >0 "_s}),
      entry(3, Symbol::kAttention,
            {u"Die Eingabe überschreitet die  "_s,
             u"die zulässige Eingabegrenze !  "_s,
             {},
             u"Eingabe-Bereich: %1"_s}),
      entry(4, Symbol::kStop,
            {u" Der Ks8,2 - Wert  muss  kleiner sein"_s, {}, u" als 0,5 x  Ks4,3 - Wert ! "_s}),
      entry(
          5, Symbol::kStop,
          {u" Der Ks4,3-Wert muss größer sein"_s, u" wie der Ks8,2-Wert. "_s, {}, u" mind: %1"_s}),
      entry(6, Symbol::kAttention,
            {u"Die Eingabe überschreitet die  "_s,
             u"die zulässige Eingabegrenze !  "_s,
             {},
             u"Eingabe-Bereich: %1"_s,
             u" negative Ks8,2 Werte als Kb8,2 eingeben !"_s}),
      entry(7, Symbol::kWarning,
            {u" Der Wert für Gesamthärte / SE ist kleiner "_s,
             u" als der vorhandene Wert  > Calcium <  !!!  "_s}),
      entry(8, Symbol::kWarning,
            {u" Der Wert für Gesamthärte / SE ist kleiner "_s,
             u" als der vorhandene Wert  > Magnesium <  !!!"_s}),
      entry(9, Symbol::kWarning,
            {u" Der eingegebene Wert für Calcium / Ca ist größer "_s,
             u" als der vorhandene Wert  > Gesamthärte <  !!! "_s}),
      entry(10, Symbol::kWarning,
            {u" Der eingegebene Wert für Magnesium / Mg ist größer "_s,
             u" als der vorhandene Wert  > Gesamthärte <  !!!"_s}),
      entry(11, Symbol::kWarning,
            {u" Bei vorgegebenem KS8,2  muss der    "_s,
             u" pH-Wert niedriger sein !!!"_s,
             {},
             u" pH <%1"_s}),
      entry(12, Symbol::kWarning,
            {u" Bei vorgegebenem pH-Wert muss der   "_s,
             u" Wert für  Ks8,2  größer sein !!!"_s,
             {},
             u"  Ks8,2 >=%1"_s}),
      entry(13, Symbol::kStop,
            {u" Kb8,2  und  Ks8,2  können nicht"_s,
             u" zusammen  vorliegen !"_s,
             {},
             u" zuletzt eingegebener Wert wird gelöscht !"_s}),
  };
  return kCatalogue;
}

}  // namespace

void subcalc::message(int& number, const QString& text) {
  number = static_cast<int>(questions_.ask(catalogueMessage(catalogue(), number, text)));
}

void subcalc::show(int number, const QString& text) {
  message(number, text);
}

}  // namespace calvora
