#include "tools/umrechner.h"

#include <algorithm>
#include <cmath>

#include "chem/subcalc.h"
#include "entry/decimal.h"

namespace calvora {

using namespace Qt::StringLiterals;

/// What one of a unit measures beside its factor: an amount of substance counts by its charge, a
/// mass by charge and molar mass.
enum class Per { kNothing, kAmount, kMass };

/// A unit: (value − shiftBefore) × scale − shiftAfter is the value in the base unit.
struct Unit {
  QString caption;  ///< its blanks right-align the units
  double scale = 1;
  Per per = Per::kNothing;
  double shiftBefore = 0;
  double shiftAfter = 0;
};

namespace {

constexpr int kBaseSlot = 1;
constexpr int kMgPerM3Slot = 10;

constexpr double kAbsoluteZero = 273.15;  // K at 0 °C
constexpr double kDegreesPerMeq = 2.8;    // °dH per mmol/l of charge
constexpr double kLargest = 10000;        // of what can be typed
constexpr double kLargestMgPerM3 = 900000;
constexpr double kLargestConverted = 1e15;  // beyond, not even shown for a moment
constexpr int kTextDecimals = 20;

const QString kNoValue = u"------"_s;

/// The group of a field's units; the field's own unit is that of slot `own`.
struct FieldUnits {
  int field;
  int own;
  double charge = 0;
  double molarMass = 0;  // g/mol; 0: the field names no substance
};

constexpr std::array kFields{
    FieldUnits{feld::kLeitfähigkeit, 1},     FieldUnits{feld::kTemperatur, 1},
    FieldUnits{feld::kKs82, 11, 1},          FieldUnits{feld::kKs43, 11, 1},
    FieldUnits{feld::kKb82, 11, 2},          FieldUnits{feld::kGesamthärte, 1, 2},
    FieldUnits{feld::kCalcium, 8, 2, 40.08}, FieldUnits{feld::kMagnesium, 8, 2, 24.31},
    FieldUnits{feld::kChlorid, 8, 1, 35.45}, FieldUnits{feld::kEisen, 8, 2, 55.85},
};

const FieldUnits* unitsOf(int field) {
  const auto* found = std::ranges::find(kFields, field, &FieldUnits::field);
  return found == kFields.end() ? nullptr : found;
}

bool namesSubstance(int field) {
  const FieldUnits* units = unitsOf(field);
  return units != nullptr && units->molarMass > 0;
}

/// The units of a field's group, from slot 1, the base, on.
std::span<const Unit> unitsIn(int field) {
  using enum Per;
  static const std::array kConductivity{
      Unit{u"    uS/cm"_s},           Unit{u"    mS/cm"_s, 1000},  Unit{u"      mS/m"_s, 10},
      Unit{u"         S/m"_s, 10000}, Unit{u"    Mho/m"_s, 10000}, Unit{u"            EC"_s},
  };
  static const std::array kTemperature{
      Unit{u"       °C  Celsius"_s},
      Unit{.caption = u" °F  Fahrenheit"_s, .scale = 5.0 / 9.0, .shiftBefore = 32},
      Unit{.caption = u"     °R  Rankine"_s, .scale = 5.0 / 9.0, .shiftAfter = kAbsoluteZero},
      Unit{.caption = u"                Kelvin"_s, .shiftAfter = kAbsoluteZero},
  };
  static const std::array kConcentration{
      Unit{u"                 °dH"_s},
      Unit{u"                 °aH"_s, 0.96},
      Unit{u"                  °fH"_s, 0.56},
      Unit{u"                 °eH"_s, 0.8},
      Unit{u"         ppm TH"_s, 0.056},
      Unit{u" ppm CaCO3"_s, 0.056},
      Unit{u"                ppm"_s, kDegreesPerMeq, kMass},
      Unit{u"                mg/l"_s, kDegreesPerMeq, kMass},
      Unit{u"               g/m3"_s, kDegreesPerMeq, kMass},
      Unit{u"            mg/m3"_s, kDegreesPerMeq / 1000, kMass},
      Unit{u"            mmol/l"_s, kDegreesPerMeq, kAmount},
      Unit{u"           mol/m3"_s, kDegreesPerMeq, kAmount},
      Unit{u"        mmol/m3"_s, kDegreesPerMeq / 1000, kAmount},
      Unit{u"           mmeq/l"_s, kDegreesPerMeq},
  };
  if (unitsOf(field) == nullptr) return {};
  if (field == feld::kLeitfähigkeit) return kConductivity;
  if (field == feld::kTemperatur) return kTemperature;
  return kConcentration;
}

/// The unit of a slot that the group has.
const Unit& unitAt(int field, int slot) {
  return unitsIn(field)[static_cast<size_t>(slot - 1)];
}

double limitOf(int slot) {
  return slot == kMgPerM3Slot ? kLargestMgPerM3 : kLargest;
}

bool isEmptyOrZero(const NumberCell& cell) {
  const auto* number = std::get_if<double>(&cell);
  return std::holds_alternative<std::monostate>(cell) || (number != nullptr && *number == 0);
}

}  // namespace

Umrechner::Umrechner(Program& program, Questions& questions)
    : program_(program), questions_(questions), entry_(questions), field_(program.fieldIndex) {
  for (int i = 1; i < Umrechnungstabelle::size(); ++i) value(i) = {};
  labelcap();
  const int own = ownSlot();
  if (own == 0) return;
  hcvmol();
  const double given = program_.record.value[field_].toDouble();
  value(own) = given;
  dimumdar(own, given);
  dimumrest(own, given);
  dimumall();
}

int Umrechner::ownSlot() const {
  const FieldUnits* units = unitsOf(field_);
  return units == nullptr ? 0 : units->own;
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
  const int own = ownSlot();
  return own != 0 && typed_ && !slots_[own].text.isEmpty() && !isRuledOut();
}

QString Umrechner::ownText() const {
  return Decimal(numberOf(value(ownSlot()))).fixedText(4);
}

bool Umrechner::isRuledOut() const {
  return ruledOutCapacity(program_.record) == field_;
}

NumberCell& Umrechner::value(int slot) const {
  return program_.conversion[slot][spalte::kWert];
}

int Umrechner::lastSlot() const {
  return static_cast<int>(unitsIn(field_).size());
}

/// Captions, and which slots can be clicked.
void Umrechner::labelcap() {
  for (int i = 1; i <= kUnitSlots; ++i) {
    slots_[i] = {};
    if (i > lastSlot()) continue;
    const Unit& unit = unitAt(field_, i);
    slots_[i].caption = unit.caption;
    slots_[i].massless = unit.per == Per::kMass && !namesSubstance(field_);
    slots_[i].enabled = !slots_[i].massless;
  }
}

/// The substances' constants.
void Umrechner::hcvmol() {
  for (const FieldUnits& units : kFields) {
    if (units.charge == 0) continue;
    program_.conversion[units.field][spalte::kLadung] = units.charge;
    if (units.molarMass > 0) program_.conversion[units.field][spalte::kMolmasse] = units.molarMass;
  }
}

/// Shows a value in a slot. A text that stands for no value is shown as it is.
void Umrechner::dimumdar(int slot, const NumberCell& value) {
  const auto* text = std::get_if<QString>(&value);
  if (text != nullptr && text->startsWith("--"_L1)) {
    slots_[slot].text = *text;
    return;
  }
  const QString allDecimals = Decimal(numberOf(value)).fixedText(kTextDecimals);
  slots_[slot].text = reformatted(allDecimals, Format::kAutomatic);
}

void Umrechner::setBase(double value) {
  this->value(kBaseSlot) = value;
  dimumdar(kBaseSlot, value);
}

/// To the base of the conductivities.
void Umrechner::dimumlf(int slot, double value) {
  if (field_ != feld::kLeitfähigkeit) return dimumtemp(slot, value);
  setBase(toBase(slot, value));
}

/// To the base of the temperatures.
void Umrechner::dimumtemp(int slot, double value) {
  if (field_ != feld::kTemperatur) return dimumrest(slot, value);
  setBase(toBase(slot, value));
}

/// To the base of hardness and concentration.
void Umrechner::dimumrest(int slot, double value) {
  if (field_ < feld::kKs82 || slot == kBaseSlot) return;
  setBase(toBase(slot, value));
}

/// Base units in one of a unit, for the substance of the field.
double Umrechner::scaleOf(const Unit& unit) const {
  const auto constant = [this](int column) {
    return numberOf(program_.conversion[field_][column]);
  };
  switch (unit.per) {
    case Per::kAmount:
      return unit.scale * constant(spalte::kLadung);
    case Per::kMass:
      return unit.scale * constant(spalte::kLadung) / constant(spalte::kMolmasse);
    default:
      return unit.scale;
  }
}

double Umrechner::toBase(int slot, double value) const {
  const Unit& unit = unitAt(field_, slot);
  return (value - unit.shiftBefore) * scaleOf(unit) - unit.shiftAfter;
}

double Umrechner::fromBase(int slot, double base) const {
  const Unit& unit = unitAt(field_, slot);
  return (base + unit.shiftAfter) / scaleOf(unit) + unit.shiftBefore;
}

/// All other slots from the base. The slot that was typed keeps what was typed.
void Umrechner::dimumall() {
  const double base = numberOf(value(kBaseSlot));
  for (int i = 2; i <= lastSlot(); ++i) {
    if (!isEmptyOrZero(value(i))) continue;
    value(i) = slots_[i].massless ? NumberCell(kNoValue) : NumberCell(fromBase(i, base));
    dimumdar(i, value(i));
  }
}

Conversion Umrechner::enter(int slot, const QString& typed) {
  if (!slots_[slot].enabled) return Conversion::kDone;
  QString text = typed.trimmed();
  QString maximum;
  int code = check::kValid;
  entry_.werteingabe(text, u"0"_s, maximum, code);
  const bool isNumber = code == check::kEmpty || isNumberText(text);
  if (code == check::kInvalid || !isNumber) return Conversion::kNotANumber;
  const double given = numberIn(text);
  if (std::abs(given) > kLargestConverted) return Conversion::kTooLarge;
  if (given == 0 && field_ != feld::kTemperatur) return Conversion::kDone;
  typed_ = true;
  for (int i = 1; i <= 16; ++i) value(i) = {};
  labelcap();
  value(slot) = given;
  dimumdar(slot, given);
  dimumlf(slot, given);
  dimumall();
  return given > limitOf(slot) ? Conversion::kTooLarge : Conversion::kDone;
}

void Umrechner::tell(Conversion result, int slot) {
  if (result == Conversion::kDone) return;
  const QString limit = QString::number(limitOf(slot));
  const QString text = result == Conversion::kNotANumber
                           ? u" Bitte nur Zahlen eingeben ! "_s
                           : joinedLines({u" Der Wert ist zu groß ! "_s,
                                          u" Es sind höchstens "_s + limit + u" zulässig. "_s});
  questions_.ask({.text = text, .title = u"Eingabe"_s, .symbol = Symbol::kWarning});
}

void Umrechner::clearTexts() {
  for (int i = 1; i <= kUnitSlots; ++i) slots_[i].text.clear();
}

QString umrechnerHilfe() {
  return joinedLines(
      {u" Klicken Sie die Einheit an, in der Ihr Wert vorliegt, und geben Sie ihn ein. "_s,
       u" Alle anderen Einheiten werden sofort umgerechnet. "_s,
       u" „Eingabe übernehmen“ trägt den Wert in die Analyse ein. "_s,
       u" Mit der Tastatur: Pfeiltasten wählen die Einheit, Enter öffnet die Eingabe. "_s});
}

}  // namespace calvora
