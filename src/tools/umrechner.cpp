#include "tools/umrechner.h"

#include <algorithm>
#include <cmath>

#include "chem/subcalc.h"
#include "entry/decimal.h"

namespace calvora {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBaseSlot = 1;
constexpr int kFirstMassSlot = 7;
constexpr int kLastMassSlot = 10;
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

/// Captions of a group from slot 1 on; the blanks right-align the units.
std::span<const QString> captionsOf(int field) {
  static const std::array kConductivity{u"    uS/cm"_s,    u"    mS/cm"_s, u"      mS/m"_s,
                                        u"         S/m"_s, u"    Mho/m"_s, u"            EC"_s};
  static const std::array kTemperature{u"       °C  Celsius"_s, u" °F  Fahrenheit"_s,
                                       u"     °R  Rankine"_s, u"                Kelvin"_s};
  static const std::array kConcentration{
      u"                 °dH"_s, u"                 °aH"_s, u"                  °fH"_s,
      u"                 °eH"_s, u"         ppm TH"_s,      u" ppm CaCO3"_s,
      u"                ppm"_s,  u"                mg/l"_s, u"               g/m3"_s,
      u"            mg/m3"_s,    u"            mmol/l"_s,   u"           mol/m3"_s,
      u"        mmol/m3"_s,      u"           mmeq/l"_s};
  if (unitsOf(field) == nullptr) return {};
  if (field == feld::kLeitfähigkeit) return kConductivity;
  if (field == feld::kTemperatur) return kTemperature;
  return kConcentration;
}

/// µS/cm in one unit of a slot.
constexpr std::array kConductivityPerUnit{1.0, 1000.0, 10.0, 10000.0, 10000.0, 1.0};

/// The temperature in °C of a value in a slot's unit.
double celsiusOf(int slot, double value) {
  switch (slot) {
    case 2:
      return (value - 32) * (5.0 / 9.0);
    case 3:
      return value * (5.0 / 9.0) - kAbsoluteZero;
    case 4:
      return value - kAbsoluteZero;
    default:
      return value;
  }
}

/// A temperature in °C in a slot's unit.
double ofCelsius(int slot, double celsius) {
  switch (slot) {
    case 2:
      return celsius * 9 / 5 + 32;
    case 3:
      return (celsius + kAbsoluteZero) * 9 / 5;
    case 4:
      return celsius + kAbsoluteZero;
    default:
      return celsius;
  }
}

double limitOf(int slot) {
  return slot == kMgPerM3Slot ? kLargestMgPerM3 : kLargest;
}

const FieldCaption& captionOf(int field) {
  static const FieldCaption kNone{};
  const auto captions = inputCaptions();
  const auto found = std::ranges::find(captions, field, &FieldCaption::index);
  return found == captions.end() ? kNone : *found;
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
  const FieldCaption& field = captionOf(field_);
  return field.caption + u"      "_s + field.shortLabel;
}

QString Umrechner::prompt(int slot) const {
  return captionOf(field_).caption + u"   in    "_s + slots_[slot].caption.trimmed();
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
  return static_cast<int>(captionsOf(field_).size());
}

/// Captions, and which slots can be clicked.
void Umrechner::labelcap() {
  const auto captions = captionsOf(field_);
  for (int i = 1; i <= kUnitSlots; ++i) {
    UnitSlot& slot = slots_[i];
    slot.caption = i <= lastSlot() ? captions[static_cast<size_t>(i - 1)] : QString();
    slot.massless = !slot.caption.isEmpty() && i >= kFirstMassSlot && i <= kLastMassSlot &&
                    !namesSubstance(field_);
    slot.enabled = !slot.caption.isEmpty() && !slot.massless;
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
  QString formatted = Decimal(numberOf(value)).fixedText(kTextDecimals);
  int kind = kind::kAutomatic;
  entry_.wertformat(formatted, kind);
  slots_[slot].text = formatted;
}

void Umrechner::setBase(double value) {
  this->value(kBaseSlot) = value;
  dimumdar(kBaseSlot, value);
}

/// To the base of the conductivities.
void Umrechner::dimumlf(int slot, double value) {
  if (field_ != feld::kLeitfähigkeit) return dimumtemp(slot, value);
  setBase(value * kConductivityPerUnit.at(static_cast<size_t>(slot - 1)));
}

/// To the base of the temperatures.
void Umrechner::dimumtemp(int slot, double value) {
  if (field_ != feld::kTemperatur) return dimumrest(slot, value);
  setBase(celsiusOf(slot, value));
}

/// To the base of hardness and concentration.
void Umrechner::dimumrest(int slot, double value) {
  if (field_ < feld::kKs82 || slot == kBaseSlot) return;
  setBase(value * hardnessPerUnit(slot));
}

/// °dH in one unit of a slot, for the substance of the field.
double Umrechner::hardnessPerUnit(int slot) const {
  const auto constant = [this](int column) {
    return numberOf(program_.conversion[field_][column]);
  };
  const double charge = constant(spalte::kLadung);
  switch (slot) {
    case 2:
      return 0.96;
    case 3:
      return 0.56;
    case 4:
      return 0.8;
    case 5:
    case 6:
      return 0.056;
    case 7:
    case 8:
    case 9:
      return kDegreesPerMeq * charge / constant(spalte::kMolmasse);
    case 10:
      return kDegreesPerMeq * charge / constant(spalte::kMolmasse) / 1000;
    case 11:
    case 12:
      return kDegreesPerMeq * charge;
    case 13:
      return kDegreesPerMeq * charge / 1000;
    case 14:
      return kDegreesPerMeq;
    default:
      return 1;
  }
}

double Umrechner::fromBase(int slot, double base) const {
  if (field_ == feld::kLeitfähigkeit) {
    return base / kConductivityPerUnit.at(static_cast<size_t>(slot - 1));
  }
  if (field_ == feld::kTemperatur) return ofCelsius(slot, base);
  return base / hardnessPerUnit(slot);
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

Eingabe Umrechner::enter(int slot, const QString& typed) {
  if (!slots_[slot].enabled) return Eingabe::kDone;
  QString text = typed.trimmed();
  QString maximum;
  int code = check::kValid;
  entry_.werteingabe(text, u"0"_s, maximum, code);
  const bool isNumber = code == check::kEmpty || isNumberText(text);
  if (code == check::kInvalid || !isNumber) return Eingabe::kNotANumber;
  NumberCell number;
  entry_.strzahl(text, number);
  const double given = numberOf(number);
  if (std::abs(given) > kLargestConverted) return Eingabe::kTooLarge;
  if (given == 0 && field_ != feld::kTemperatur) return Eingabe::kDone;
  typed_ = true;
  for (int i = 1; i <= 16; ++i) value(i) = {};
  labelcap();
  value(slot) = given;
  dimumdar(slot, given);
  dimumlf(slot, given);
  dimumall();
  return given > limitOf(slot) ? Eingabe::kTooLarge : Eingabe::kDone;
}

void Umrechner::melden(Eingabe result, int slot) {
  if (result == Eingabe::kDone) return;
  const QString limit = QString::number(limitOf(slot));
  const QString text = result == Eingabe::kNotANumber
                           ? u" Bitte nur Zahlen eingeben ! "_s
                           : joinedLines({u" Der Wert ist zu groß ! "_s,
                                          u" Es sind höchstens "_s + limit + u" zulässig. "_s});
  questions_.ask({.text = text, .title = u"Eingabe"_s, .symbol = 2});
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
