#pragma once

#include "base/questions.h"
#include "model/record.h"

namespace calvora {

/// Slots 1 to 14 of the converter: two columns of seven, one unit each.
inline constexpr int kUnitSlots = 14;
inline constexpr int kSlotRows = 7;

struct FieldUnits;

/// What a slot shows.
struct UnitSlot {
  QString caption = {};   ///< the unit; its leading blanks belong to it
  QString text = {};      ///< the value in that unit
  double value = 0;       ///< before it is rounded for its text
  bool enabled = false;   ///< can be clicked
  bool massless = false;  ///< a mass concentration of a field that names no substance
};

/// What became of a typed value.
enum class Conversion {
  kDone,        ///< converted, or an entry without value that changes nothing
  kNotANumber,  ///< nothing was changed
  kTooLarge,    ///< converted and shown, to be typed again
};

/// The unit converter: shows the value of a field of the analysis in every unit of its group. All
/// conversions go through the unit of slot 1: µS/cm, °C or °dH. A field without units (any but 1,
/// 3 to 6, 20 and 23 to 26) has only empty slots.
class Umrechner {
 public:
  /// Shows the value that the record holds for the field.
  Umrechner(const AnalysisRecord& record, int field);

  [[nodiscard]] int field() const { return field_; }

  /// The slot of the field's own unit; 0 if the field has no units.
  [[nodiscard]] int ownSlot() const;

  /// Slot 1 to 14; any other is runtime error 9.
  [[nodiscard]] const UnitSlot& slot(int slot) const { return slots_[slot]; }

  /// Name and symbol of the field.
  [[nodiscard]] QString heading() const;

  /// What is asked for when a value is typed in a slot's unit.
  [[nodiscard]] QString prompt(int slot) const;

  /// The slot that `step` leads to from a slot, over those that cannot be clicked; the slot itself
  /// if there is none.
  [[nodiscard]] int neighbour(int slot, int step) const;

  /// Takes a text typed in a slot's unit and recomputes all slots. Empty and zero change nothing,
  /// except for the temperature, where both are 0 in that unit. Above 10000 (900000 mg/m3) a value
  /// is too large.
  Conversion enter(int slot, const QString& typed);

  /// Empties what the slots show, as after a value that is too large.
  void clearTexts();

  /// Whether a value was typed that the record can take. Taking over one that was only looked at
  /// would store its rounded display.
  [[nodiscard]] bool canTakeOver() const;

  /// The value in the field's own unit with the record's four decimals, however coarse it is shown.
  [[nodiscard]] QString ownText() const;

  /// Whether the measured pH rules the field out, so that it cannot take any value.
  [[nodiscard]] bool isRuledOut() const;

 private:
  void show(int slot, double given);

  const AnalysisRecord& record_;
  int field_;
  const FieldUnits* units_;  ///< null: the field has none
  bool typed_ = false;       ///< the slots show a value that was typed here
  CheckedArray<UnitSlot, kUnitSlots + 1> slots_;
};

/// Why a value typed in a slot's unit cannot stay.
Message entryNotice(Conversion result, int slot);

/// What the converter's help says.
QString umrechnerHilfe();

}  // namespace calvora
