// The messages of the input checks and the calculation steps.
#include "chem/subcalc.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

CatalogueMessage entry(InputFault fault, Symbol symbol, std::initializer_list<QString> lines) {
  return catalogueEntry(static_cast<int>(fault), u"Eingabefehler"_s, Button::kOk, symbol, lines);
}

std::span<const CatalogueMessage> catalogue() {
  using enum InputFault;
  static const std::array kCatalogue{
      entry(kConductivityTooLowForPh, Symbol::kStop,
            {u"LF- und pH- Wert passen nicht zusammen !"_s,
             u"Bei dem eingegebenen pH-Wert muss    "_s, u" LF  mind. %1 µS/cm  sein !"_s}),
      entry(kNotPositive, Symbol::kStop,
            {u" Der eingegebene Wert muss    "_s, u" größer als Null sein !"_s, {}, u"%1 >0 "_s}),
      entry(kOutOfRange, Symbol::kAttention,
            {u"Die Eingabe überschreitet die  "_s,
             u"die zulässige Eingabegrenze !  "_s,
             {},
             u"Eingabe-Bereich: %1"_s}),
      entry(kKs82AboveHalfKs43, Symbol::kStop,
            {u" Der Ks8,2 - Wert  muss  kleiner sein"_s, {}, u" als 0,5 x  Ks4,3 - Wert ! "_s}),
      entry(
          kKs43BelowTwiceKs82, Symbol::kStop,
          {u" Der Ks4,3-Wert muss größer sein"_s, u" wie der Ks8,2-Wert. "_s, {}, u" mind: %1"_s}),
      entry(kCapacityOutOfRange, Symbol::kAttention,
            {u"Die Eingabe überschreitet die  "_s,
             u"die zulässige Eingabegrenze !  "_s,
             {},
             u"Eingabe-Bereich: %1"_s,
             u" negative Ks8,2 Werte als Kb8,2 eingeben !"_s}),
      entry(kTotalBelowCalcium, Symbol::kWarning,
            {u" Der Wert für Gesamthärte / SE ist kleiner "_s,
             u" als der vorhandene Wert  > Calcium <  !!!  "_s}),
      entry(kTotalBelowMagnesium, Symbol::kWarning,
            {u" Der Wert für Gesamthärte / SE ist kleiner "_s,
             u" als der vorhandene Wert  > Magnesium <  !!!"_s}),
      entry(kCalciumAboveTotal, Symbol::kWarning,
            {u" Der eingegebene Wert für Calcium / Ca ist größer "_s,
             u" als der vorhandene Wert  > Gesamthärte <  !!! "_s}),
      entry(kMagnesiumAboveTotal, Symbol::kWarning,
            {u" Der eingegebene Wert für Magnesium / Mg ist größer "_s,
             u" als der vorhandene Wert  > Gesamthärte <  !!!"_s}),
      entry(kPhTooHighForKs82, Symbol::kWarning,
            {u" Bei vorgegebenem KS8,2  muss der    "_s,
             u" pH-Wert niedriger sein !!!"_s,
             {},
             u" pH <%1"_s}),
      entry(kKs82TooLowForPh, Symbol::kWarning,
            {u" Bei vorgegebenem pH-Wert muss der   "_s,
             u" Wert für  Ks8,2  größer sein !!!"_s,
             {},
             u"  Ks8,2 >=%1"_s}),
      entry(kBothKs82AndKb82, Symbol::kStop,
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

void subcalc::show(InputFault fault, const QString& text) {
  int number = static_cast<int>(fault);
  message(number, text);
}

}  // namespace calvora
