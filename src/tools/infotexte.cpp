#include "tools/infotexte.h"

namespace calvora {

using namespace Qt::StringLiterals;

QStringList infotexte() {
  return {
      u"pH aus Ks-Wert      pH-Wert wird aus Kb- bzw. den Ks-Werten berechnet"_s,
      u" "_s,
      u"pH-Wert aus Ks8,2   pH-Wert der aus dem Ks8,2  berechnet werden kann. "_s,
      u"                    Bedingung: salzarme Matrix (VE-Wasser, Natronlauge)"_s,
      u" "_s,
      u"pH bei 25°C         Umrechnung des gemessenen pH-Wertes auf Std.-Temp."_s,
      u"                    25 °C  nach DIN 38404"_s,
      u" "_s,
      u"pH aus LF / VE      pH-Wert der nur aus der Leitfähigkeit berechnet  "_s,
      u"                    wird. für Wässer mit pH >8,2. und salzarmer Matrix"_s,
      u" "_s,
      QString(),
  };
}

}  // namespace calvora
