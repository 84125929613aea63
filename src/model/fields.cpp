#include "model/fields.h"

#include <algorithm>

namespace calvora {

std::span<const FieldCaption> inputCaptions() {
  static const std::array kCaptions{
      FieldCaption{1, QStringLiteral("Leitfähigkeit  gemessen"), QStringLiteral("LF"),
                   QStringLiteral("µS/cm")},
      FieldCaption{2, QStringLiteral("pH-Wert  gem. / Elektrode"), QStringLiteral("pH"),
                   QStringLiteral("pH t")},
      FieldCaption{3, QStringLiteral("Temperatur  Medium "), QStringLiteral("T"),
                   QStringLiteral("°C")},
      FieldCaption{4, QStringLiteral("Säurekapazität     "), QStringLiteral("Ks8,2"),
                   QStringLiteral("mmol/l")},
      FieldCaption{5, QStringLiteral("Säurekapazität       "), QStringLiteral("Ks4,3"),
                   QStringLiteral("mmol/l")},
      FieldCaption{6, QStringLiteral("Basekapazität       Kb8,2"), QStringLiteral("Kb8,2"),
                   QStringLiteral("mmol/l")},
      FieldCaption{20, QStringLiteral("Gesamthärte"), QStringLiteral("SE"), QStringLiteral("°d")},
      FieldCaption{21, QStringLiteral("Karbonathärte"), QStringLiteral("KH"), QStringLiteral("°d")},
      FieldCaption{22, QStringLiteral("Nichtkarbonathärte"), QStringLiteral("NKH"),
                   QStringLiteral("°d")},
      FieldCaption{23, QStringLiteral("Calcium"), QStringLiteral("Ca"), QStringLiteral("mg/l")},
      FieldCaption{24, QStringLiteral("Magnesium"), QStringLiteral("Mg"), QStringLiteral("mg/l")},
      FieldCaption{25, QStringLiteral("Chlorid"), QStringLiteral("Cl"), QStringLiteral("mg/l")},
      FieldCaption{26, QStringLiteral("Eisen"), QStringLiteral("Fe"), QStringLiteral("mg/l")},
  };
  return kCaptions;
}

std::span<const FieldCaption> resultCaptions() {
  static const std::array kCaptions{
      FieldCaption{7, QStringLiteral("pH aus Ks-, Kb- Wert"), {}, QStringLiteral("pH")},
      FieldCaption{8,
                   QStringLiteral("pH-Wert aus  Ks8,2"),
                   {},
                   QStringLiteral("pH"),
                   QStringLiteral("pH-Wert berechnet nur aus dem Ks8,2-Wert")},
      FieldCaption{9,
                   QStringLiteral("pH bei 25 °C  aus Mess-pH"),
                   {},
                   QStringLiteral("pH"),
                   QStringLiteral("Umrechnung des gemessenen pH-Wertes  auf T=25°C")},
      FieldCaption{
          10,
          QStringLiteral("pH aus LF / VE   / mind. LF "),
          {},
          QStringLiteral("pH"),
          QStringLiteral(" Leitfähigkeit berechnet aus pH wenn dieser größer als 8,3 ist.")},
      FieldCaption{11, QStringLiteral("Hydrogencarbonat "), QStringLiteral("HCO3"),
                   QStringLiteral("mg/l")},
      FieldCaption{12, QStringLiteral("Carbonat"), QStringLiteral("CO3"), QStringLiteral("mg/l")},
      FieldCaption{13, QStringLiteral("Kohlendioxid frei"), QStringLiteral("CO2"),
                   QStringLiteral("mg/l")},
      FieldCaption{14, QStringLiteral("Kohlendioxid überschüssig"), QStringLiteral("CO2"),
                   QStringLiteral("mg/l")},
      FieldCaption{15, QStringLiteral("Sättigungs-Index"), QStringLiteral("SI"), {}},
  };
  return kCaptions;
}

const FieldCaption& captionOf(int field) {
  static const FieldCaption kNone{};
  for (const auto& captions : {inputCaptions(), resultCaptions()}) {
    const auto found = std::ranges::find(captions, field, &FieldCaption::index);
    if (found != captions.end()) return *found;
  }
  return kNone;
}

bool isShown(int field) {
  return captionOf(field).index != 0;
}

}  // namespace calvora
