#include "model/fields.h"

#include <algorithm>
#include <array>

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

/// The field table: index, caption, symbol, unit, row of the overview, range or tool tip.
std::span<const Field> fields() {
  using enum InputFault;
  // No row may make a temporary, neither by QStringLiteral nor by an optional range: clang up to 14
  // destroys those that stand beside a _fp at the end of the function, also where nothing was
  // initialised.
  static const std::array kFields{
      Field{1, u"Leitfähigkeit  gemessen"_s, u"LF"_s, u"µS/cm"_s, 1,
            FieldRange{0.5_fp, 5000_fp, u"0,5 - 5000 µS/cm"_s},
            u"Gemessene Leitfähigkeit, bei 25 °C"_s},
      Field{2, u"pH-Wert  gem. / Elektrode"_s, u"pH"_s, u"pH t"_s, 2,
            FieldRange{4_fp, 12_fp, u"4- 12"_s},
            u"Mit der Elektrode gemessener pH-Wert bei der Temperatur des Mediums"_s},
      Field{3, u"Temperatur  Medium "_s, u"T"_s, u"°C"_s, 3,
            FieldRange{1_fp, 90_fp, u"1-90 °C"_s, true},
            u"Temperatur des Mediums bei der pH-Messung"_s},
      Field{4, u"Säurekapazität     "_s, u"Ks8,2"_s, u"mmol/l"_s, 4,
            FieldRange{0_fp, 10_fp, u" 0 - 10"_s, false, kCapacityOutOfRange},
            u"Säure, die bis pH 8,2 verbraucht wird (nur ab pH 8,2)"_s},
      Field{5, u"Säurekapazität       "_s, u"Ks4,3"_s, u"mmol/l"_s, 5,
            FieldRange{FixedPoint::lowest(), 7_fp, u" 0 - 7,0"_s, false, kCapacityOutOfRange},
            u"Säure, die bis pH 4,3 verbraucht wird"_s},
      Field{6, u"Basekapazität       Kb8,2"_s, u"Kb8,2"_s, u"mmol/l"_s, 6,
            FieldRange{FixedPoint::lowest(), 2.5_fp, u" 0 - 2,5"_s, false, kCapacityOutOfRange},
            u"Lauge, die bis pH 8,2 verbraucht wird (nur unter pH 8,2)"_s},
      Field{20, u"Gesamthärte"_s, u"SE"_s, u"°d"_s, 8,
            FieldRange{0.05_fp, 100_fp, u"0,05 - 100 °d"_s, true},
            u"Calcium und Magnesium zusammen"_s},
      Field{21, u"Karbonathärte"_s, u"KH"_s, u"°d"_s, 9},
      Field{22, u"Nichtkarbonathärte"_s, u"NKH"_s, u"°d"_s, 10},
      Field{23, u"Calcium"_s, u"Ca"_s, u"mg/l"_s, 11,
            FieldRange{0.1_fp, 700_fp, u"0,1 - 700"_s, true}, u"Calcium, gelöst"_s},
      Field{24, u"Magnesium"_s, u"Mg"_s, u"mg/l"_s, 12,
            FieldRange{0.1_fp, 420_fp, u"0,1 - 420 "_s, true}, u"Magnesium, gelöst"_s},
      Field{25, u"Chlorid"_s, u"Cl"_s, u"mg/l"_s, 13,
            FieldRange{0.01_fp, 500_fp, u"0,01 - 500"_s, true}, u"Chlorid, gelöst"_s},
      Field{26, u"Eisen"_s, u"Fe"_s, u"mg/l"_s, 14,
            FieldRange{0.01_fp, 20_fp, u"0,01 - 20"_s, true},
            u"Eisen (geht in keine Rechnung ein)"_s},
      Field{7, u"pH aus Ks-, Kb- Wert"_s, QString(), u"pH"_s, 16},
      Field{8, u"pH-Wert aus  Ks8,2"_s, QString(), u"pH"_s, 17, FieldRange{},
            u"pH-Wert berechnet nur aus dem Ks8,2-Wert"_s},
      Field{9, u"pH bei 25 °C  aus Mess-pH"_s, QString(), u"pH"_s, 18, FieldRange{},
            u"Umrechnung des gemessenen pH-Wertes  auf T=25°C"_s},
      Field{10, u"pH aus LF / VE   / mind. LF "_s, QString(), u"pH"_s, 0, FieldRange{},
            u" Leitfähigkeit berechnet aus pH wenn dieser größer als 8,3 ist."_s},
      Field{11, u"Hydrogencarbonat "_s, u"HCO3"_s, u"mg/l"_s, 20},
      Field{12, u"Carbonat"_s, u"CO3"_s, u"mg/l"_s, 21},
      Field{13, u"Kohlendioxid frei"_s, u"CO2"_s, u"mg/l"_s, 22},
      Field{14, u"Kohlendioxid überschüssig"_s, u"CO2"_s, u"mg/l"_s, 23},
      Field{15, u"Sättigungs-Index"_s, u"SI"_s, {}, 24},
  };
  return kFields;
}

/// The inputs come first in the table; this is the first result.
size_t inputCount() {
  const auto result = std::ranges::find(fields(), feld::kPhAusKapazitäten, &Field::index);
  return static_cast<size_t>(result - fields().begin());
}

/// One move without regard to locks.
int move(int from, int step) {
  const std::vector<int>& boxes = typedFields();
  auto box = std::ranges::find(boxes, from);
  if (step > 0) return ++box == boxes.end() ? boxes.front() : *box;
  const bool startOfGroup = from == boxes.front() || from == feld::kGesamthärte;
  return startOfGroup ? from : *--box;
}

}  // namespace

std::span<const Field> inputFields() {
  return fields().first(inputCount());
}

std::span<const Field> resultFields() {
  return fields().subspan(inputCount());
}

const Field& fieldOf(int index) {
  static const Field kNone;
  const auto found = std::ranges::find(fields(), index, &Field::index);
  return found == fields().end() ? kNone : *found;
}

const Field& fieldOfRow(int row) {
  const auto found = std::ranges::find(fields(), row, &Field::overviewRow);
  return row == 0 || found == fields().end() ? fieldOf(0) : *found;
}

QString fullName(const Field& field) {
  const QString caption = field.caption.simplified();
  return caption.endsWith(field.shortLabel) ? caption : caption + ' '_L1 + field.shortLabel;
}

QString spokenName(const Field& field) {
  const QString name = fullName(field);
  return field.unit.isEmpty() ? name : name + u" in "_s + field.unit;
}

bool isShown(int index) {
  return fieldOf(index).index != 0;
}

const std::vector<int>& typedFields() {
  static const auto kTyped = [] {
    std::vector<int> typed;
    for (const Field& field : fields()) {
      if (field.isTyped()) typed.push_back(field.index);
    }
    return typed;
  }();
  return kTyped;
}

int nextBox(int from, int step, const std::function<bool(int)>& isLocked) {
  int target = move(from, step);
  for (size_t tries = 0; isLocked(target); ++tries) {
    if (tries == typedFields().size()) return from;
    target = move(target, step);
  }
  return target;
}

}  // namespace calvora
