#pragma once

#include <QString>
#include <array>
#include <initializer_list>

#include "base/questions.h"
#include "entry/number_text.h"
#include "model/fields.h"
#include "model/record.h"

namespace calvora {

/// Slots of the equilibrium constants that `konst_k` computes.
namespace pk {
inline constexpr int kCalcit = 1;  ///< solubility of calcite
inline constexpr int kWasser = 2;  ///< dissociation of water
inline constexpr int kSäure1 = 3;  ///< first dissociation of carbonic acid
inline constexpr int kSäure2 = 4;  ///< second dissociation of carbonic acid
}  // namespace pk

/// Status of a check that wants the focus back in its field.
inline constexpr int kFocusBack = 1;

/// The capacity that the measured pH rules out: Ks8,2 below 8.2, Kb8,2 from there on, 0 without pH.
int ruledOutCapacity(const AnalysisRecord& record);

/// The conductivity at the measuring temperature (°C) from the one at 25 °C, in the same unit:
/// 2.1 % per kelvin of the value at 25 °C. 1000 µS/cm at 25 °C are 790 µS/cm at 15 °C.
constexpr double conductivityAt(double temperature, double conductivityAt25) {
  return conductivityAt25 * (1 + 0.021 * (temperature - 25));
}

/// The water chemistry: checks of the typed values and the steps that compute everything derived
/// from them. Works on the program's one record, in the units of fields.h. No water, however odd,
/// ends a step in a runtime error: a result that is no number or does not fit is cleared.
class subcalc {
 public:
  /// `lastField` is the field that was left last, `narrow` what the two narrow displays show.
  subcalc(AnalysisRecord& record, const int& lastField, NarrowTexts& narrow, Questions& questions);

  /// Stores a typed text (trimmed) in field `index` and checks it against its range and the other
  /// entries. A rejected value is deleted and the user told why. On return `status` is kFocusBack
  /// if the focus is to go back into the field, which it is after an emptied one too, else 0. Index
  /// 1 to 40; any other is runtime error 9.
  void checkeingabe(int index, const QString& text, int& status);

  /// Shows a message of the catalogue, with `text` built in where the message has a place for it,
  /// and writes the answer to `number`. An empty message for a number that has none.
  void message(int& number, const QString& text);

  /// Empties the capacity that the pH rules out, and with it what was computed from it.
  void clearRuledOutCapacity();

  /// Runs the ten calculation steps in their fixed order and notes where every field now comes
  /// from, also when a step ends in a fault.
  void rechenlauf();

  /// Step 1: pH that the conductivity alone implies, the least conductivity that the pH implies,
  /// the sodium that belongs to an alkaline pH, and the conductivity computed from the ions, with
  /// the carbonate species of the run before. 10 µS/cm at pH 6 imply 4.543, at pH 9 9.607.
  void ph_aus_lf();

  /// Step 2: hydrogencarbonate, carbonate and free carbon dioxide in mg/l. pH 7.5, 10 °C, Ks4,3 2.5
  /// and Kb8,2 0.25 mmol/l: 152.5425, 0.1541 and 11.0025.
  void c_formen();

  /// Step 3: pH at which the carbonate system agrees with the titrated capacities, by iteration.
  void phaus_c();

  /// Step 4: the measured pH converted to 25 °C, 0.01 per kelvin: 7.3 at 10 °C is 7.15.
  void ph_beit();

  /// Step 5: pH from the ratio of the capacities by a polynomial of degree six, one set of
  /// coefficients up to 1000 µS/cm and one above. Above a ratio of 1.21 only ">9,6" is known; value
  /// and narrow display then keep what they held. Ks4,3 2, Kb8,2 2 at 500 µS/cm: 6.524.
  void ph_aus_ksr();

  /// Step 6: pH that Ks8,2 alone implies, taken as hydroxide concentration: 1 mmol/l is 11. Below
  /// 0.002 mmol/l "<8,2", capped at 12.5.
  void phausks82();

  /// Step 7: saturation index of calcite, pH minus the pH at which the water is saturated. Uses the
  /// constants as the last `konst_k` left them, so a run without pH or temperature keeps the old.
  void s_index();

  /// Step 8: excess carbon dioxide in mg/l, free minus associated. At 10 °C, 80.2 mg/l calcium,
  /// 244 mg/l hydrogencarbonate and an ionic strength of 8 mmol/l, 11.948 mg/l are associated.
  void co2agg();

  /// Step 9: checks total hardness (°d), calcium and magnesium (mg/l) against one another and
  /// completes them; which rule applies depends on the field entered last. 80 mg/l calcium and
  /// 12 mg/l magnesium are 13.942 °d.
  void secamg();

  /// Step 10: carbonate and non-carbonate hardness in °d. 300 mg/l hydrogencarbonate are 13.768 °d,
  /// but never more than the total hardness.
  void khnkh();

  /// Computes the constants for the medium temperature: pK(T) from pK, ΔH and ΔCp at 25 °C by the
  /// integrated van 't Hoff equation with constant heat capacity. At 10 °C 8.4059, 14.5346, 6.4652
  /// and 10.4883.
  void konst_k();

  /// Ionic strength in mmol/l: half the sum of concentration times charge squared, the alkaline
  /// earths from the total hardness where it is given. 14 °d alone are 5 mmol/l.
  void ionstrong();

  /// A constant of the last `konst_k`, slots of `pk`; zero before the first.
  [[nodiscard]] double constant(int slot) const { return constants_.at(static_cast<size_t>(slot)); }

 private:
  struct IonConductivity;
  struct Found;

  void show(InputFault fault, const QString& text = {});

  // Input checks.
  bool rejectOutOfRange(int index, bool representable, int& status);
  void checkAgainstOthers(int index, int& status);
  void checkPh();
  void checkKs82(int& status);
  void checkKs43(int& status);
  void checkKb82();
  bool phExceedsKs82();
  bool ks82TooSmallForPh();
  void resetKs82();

  // Origins.
  Found takeStock();
  void noteOrigins(const Found& found);
  void noteDependants(const Found& found);

  // Calculation.
  IonConductivity minimumConductivity(double factor);
  void conductivityFromIons(const IonConductivity& ions, double factor);
  [[nodiscard]] double hydrogencarbonateEquivalent() const;

  double value(int index) const { return record_.value[index].toDouble(); }
  bool isEmpty(int index) const { return record_.text[index].isEmpty(); }
  void clear(std::initializer_list<int> indices);

  /// Stores a result with its display text. False, and the field cleared, if it is no number or
  /// does not fit.
  bool store(int index, double result, Format format);

  /// Stores only the value, the text stays; 0 if it is no number or does not fit.
  void storeValue(int index, double result);

  AnalysisRecord& record_;
  const int& lastField_;
  NarrowTexts& narrow_;
  Questions& questions_;
  std::array<double, 6> constants_{};
};

}  // namespace calvora
