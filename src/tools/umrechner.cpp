#include "tools/umrechner.h"

#include <algorithm>
#include <cmath>

#include "chem/subcalc.h"
#include "entry/decimal.h"
#include "entry/number_text.h"
#include "model/fields.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMgPerM3Slot = 10;

constexpr double kAbsoluteZero = 273.15;  // K at 0 °C
constexpr double kDegreesPerMeq = 2.8;    // °dH per mmol/l of charge
constexpr double kLargest = 10000;        // of what can be typed
constexpr double kLargestMgPerM3 = 900000;
constexpr double kLargestConverted = 1e15;  // beyond, not even shown for a moment

/// What one of a unit measures beside its factor: an amount of substance counts by its charge, a
/// mass by charge and molar mass.
enum class Per { kNothing, kAmount, kMass };

/// A unit: (value − shiftBefore) × scale − shiftAfter is the value in the base unit.
struct Unit {
  QStringView caption;  // its blanks right-align the units
  double scale = 1;
  Per per = Per::kNothing;
  double shiftBefore = 0;
  double shiftAfter = 0;
};

// The units of the groups, from slot 1, the base, on.
constexpr std::array kConductivity{
    Unit{u"    uS/cm"},           Unit{u"    mS/cm", 1000},  Unit{u"      mS/m", 10},
    Unit{u"         S/m", 10000}, Unit{u"    Mho/m", 10000}, Unit{u"            EC"},
};
constexpr std::array kTemperature{
    Unit{u"       °C  Celsius"},
    Unit{.caption = u" °F  Fahrenheit", .scale = 5.0 / 9.0, .shiftBefore = 32},
    Unit{.caption = u"     °R  Rankine", .scale = 5.0 / 9.0, .shiftAfter = kAbsoluteZero},
    Unit{.caption = u"                Kelvin", .shiftAfter = kAbsoluteZero},
};
constexpr std::array kConcentration{
    Unit{u"                 °dH"},
    Unit{u"                 °aH", 0.96},
    Unit{u"                  °fH", 0.56},
    Unit{u"                 °eH", 0.8},
    Unit{u"         ppm TH", 0.056},
    Unit{u" ppm CaCO3", 0.056},
    Unit{u"                ppm", kDegreesPerMeq, Per::kMass},
    Unit{u"                mg/l", kDegreesPerMeq, Per::kMass},
    Unit{u"               g/m3", kDegreesPerMeq, Per::kMass},
    Unit{u"            mg/m3", kDegreesPerMeq / 1000, Per::kMass},
    Unit{u"            mmol/l", kDegreesPerMeq, Per::kAmount},
    Unit{u"           mol/m3", kDegreesPerMeq, Per::kAmount},
    Unit{u"        mmol/m3", kDegreesPerMeq / 1000, Per::kAmount},
    Unit{u"           mmeq/l", kDegreesPerMeq},
};

double limitOf(int slot) {
  return slot == kMgPerM3Slot ? kLargestMgPerM3 : kLargest;
}

}  // namespace

/// The units of a field; its own is that of slot `own`.
struct FieldUnits {
  int field;
  std::span<const Unit> group;
  int own;
  double charge = 0;
  double molarMass = 0;  // g/mol; 0: the field names no substance

  [[nodiscard]] bool knows(const Unit& unit) const {
    return unit.per != Per::kMass || molarMass > 0;
  }

  /// Base units in one of a unit.
  [[nodiscard]] double scaleOf(const Unit& unit) const {
    if (unit.per == Per::kNothing) return unit.scale;
    return unit.per == Per::kAmount ? unit.scale * charge : unit.scale * charge / molarMass;
  }

  [[nodiscard]] double toBase(const Unit& unit, double value) const {
    return (value - unit.shiftBefore) * scaleOf(unit) - unit.shiftAfter;
  }

  [[nodiscard]] double fromBase(const Unit& unit, double base) const {
    return (base + unit.shiftAfter) / scaleOf(unit) + unit.shiftBefore;
  }
};

namespace {

constexpr std::array kFields{
    FieldUnits{feld::kLeitfähigkeit, kConductivity, 1},
    FieldUnits{feld::kTemperatur, kTemperature, 1},
    FieldUnits{feld::kKs82, kConcentration, 11, 1},
    FieldUnits{feld::kKs43, kConcentration, 11, 1},
    FieldUnits{feld::kKb82, kConcentration, 11, 2},
    FieldUnits{feld::kGesamthärte, kConcentration, 1, 2},
    FieldUnits{feld::kCalcium, kConcentration, 8, 2, 40.08},
    FieldUnits{feld::kMagnesium, kConcentration, 8, 2, 24.31},
    FieldUnits{feld::kChlorid, kConcentration, 8, 1, 35.45},
    FieldUnits{feld::kEisen, kConcentration, 8, 2, 55.85},
};

const FieldUnits* unitsOf(int field) {
  const auto* found = std::ranges::find(kFields, field, &FieldUnits::field);
  return found == kFields.end() ? nullptr : found;
}

}  // namespace

Umrechner::Umrechner(const AnalysisRecord& record, int field)
    : record_(record), field_(field), units_(unitsOf(field)) {
  if (units_ != nullptr) show(units_->own, record.value[field].toDouble());
}

int Umrechner::ownSlot() const {
  return units_ == nullptr ? 0 : units_->own;
}

QString Umrechner::heading() const {
  const Field& field = fieldOf(field_);
  return field.caption + u"      "_s + field.shortLabel;
}

QString Umrechner::prompt(int slot) const {
  return fieldOf(field_).caption + u"   in    "_s + slots_[slot].caption.trimmed();
}

int Umrechner::neighbour(int slot, int step) const {
  for (int next = slot + step; next >= 1 && next <= kUnitSlots; next += step) {
    if (slots_[next].enabled) return next;
  }
  return slot;
}

bool Umrechner::canTakeOver() const {
  return typed_ && !slots_[ownSlot()].text.isEmpty() && !isRuledOut();
}

QString Umrechner::ownText() const {
  return Decimal(slots_[ownSlot()].value).fixedText(4);
}

bool Umrechner::isRuledOut() const {
  return ruledOutCapacity(record_) == field_;
}

/// Shows a value in a slot's unit, and what it is in all others.
void Umrechner::show(int slot, double given) {
  const auto& group = units_->group;
  const double base = units_->toBase(group[static_cast<size_t>(slot - 1)], given);
  for (int i = 1; i <= static_cast<int>(group.size()); ++i) {
    const Unit& unit = group[static_cast<size_t>(i - 1)];
    const bool known = units_->knows(unit);
    UnitSlot& shown = slots_[i];
    shown = {.caption = unit.caption.toString(), .enabled = known, .massless = !known};
    if (known) shown.value = i == slot ? given : units_->fromBase(unit, base);
    shown.text =
        known ? reformatted(Decimal(shown.value).fixedText(20), Format::kAutomatic) : u"------"_s;
  }
}

Conversion Umrechner::enter(int slot, const QString& typed) {
  if (!slots_[slot].enabled) return Conversion::kDone;
  const QString text = typed.trimmed();
  if (!text.isEmpty() && !isNumberText(text)) return Conversion::kNotANumber;
  const double given = numberIn(QString(text).replace(','_L1, '.'_L1));  // ",5" is a half
  if (std::abs(given) > kLargestConverted) return Conversion::kTooLarge;
  if (given == 0 && field_ != feld::kTemperatur) return Conversion::kDone;
  typed_ = true;
  show(slot, given);
  return given > limitOf(slot) ? Conversion::kTooLarge : Conversion::kDone;
}

void Umrechner::clearTexts() {
  for (int i = 1; i <= kUnitSlots; ++i) slots_[i].text.clear();
}

Message entryNotice(Conversion result, int slot) {
  const QString limit = QString::number(limitOf(slot));
  const QString text = result == Conversion::kNotANumber
                           ? u" Bitte nur Zahlen eingeben ! "_s
                           : joinedLines({u" Der Wert ist zu groß ! "_s,
                                          u" Es sind höchstens "_s + limit + u" zulässig. "_s});
  return {.text = text, .title = u"Eingabe"_s, .symbol = Symbol::kWarning};
}

QString umrechnerHilfe() {
  return joinedLines(
      {u" Klicken Sie die Einheit an, in der Ihr Wert vorliegt, und geben Sie ihn ein. "_s,
       u" Alle anderen Einheiten werden sofort umgerechnet. "_s,
       u" „Eingabe übernehmen“ trägt den Wert in die Analyse ein. "_s,
       u" Mit der Tastatur: Pfeiltasten wählen die Einheit, Enter öffnet die Eingabe. "_s});
}

}  // namespace calvora
