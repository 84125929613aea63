#pragma once

#include <QString>
#include <array>
#include <initializer_list>

#include "app/fields.h"
#include "app/program.h"
#include "dialogs/questions.h"
#include "entry/werteingabe.h"

namespace calvora {

/// Slots of the equilibrium constants that `konst_k` computes.
namespace pk {
inline constexpr int kCalcit = 1;  ///< solubility of calcite
inline constexpr int kWasser = 2;  ///< dissociation of water
inline constexpr int kSäure1 = 3;  ///< first dissociation of carbonic acid
inline constexpr int kSäure2 = 4;  ///< second dissociation of carbonic acid
}  // namespace pk

/// The water chemistry: checks of the typed values and the steps that compute everything derived
/// from them. Works on the program's one record, in the units of fields.h. No water, however odd,
/// ends a step in a runtime error: a result that is no number or does not fit is cleared.
class subcalc {
 public:
  subcalc(Program& program, Questions& questions);

  /// Stores a typed text (trimmed) in field `index` and checks it against its range and the other
  /// entries. A rejected value is deleted and the user told why. `status` is 0 on entry; 1 on
  /// return asks the caller to put the focus back into the field. Index 1 to 40.
  void checkeingabe(int index, const QString& text, int& status);

  /// Shows a message of the catalogue, with `text` built in where the message has a place for it,
  /// and writes the answer to `number`. Runtime error 5 for a number that has no message.
  void message(int& number, const QString& text);

  /// Runs the ten calculation steps in their fixed order.
  void rechenlauf();

  /// Step 1: pH that the conductivity alone implies, the least conductivity that the pH implies,
  /// the sodium that belongs to an alkaline pH, and the conductivity computed from the ions.
  void ph_aus_lf();

  /// Step 2: hydrogencarbonate, carbonate and free carbon dioxide.
  void c_formen();

  /// Step 3: pH at which the carbonate system agrees with the titrated capacities, by iteration.
  void phaus_c();

  /// Step 4: the measured pH converted to 25 °C, 0.01 per kelvin.
  void ph_beit();

  /// Step 5: pH from the ratio of the capacities by a polynomial of degree six.
  void ph_aus_ksr();

  /// Step 6: pH that Ks8,2 alone implies, taken as hydroxide concentration.
  void phausks82();

  /// Step 7: saturation index of calcite, with the constants of the last `konst_k`.
  void s_index();

  /// Step 8: excess carbon dioxide, free minus associated.
  void co2agg();

  /// Step 9: checks total hardness, calcium and magnesium against one another and completes them;
  /// which rule applies depends on the field entered last.
  void secamg();

  /// Step 10: carbonate and non-carbonate hardness.
  void khnkh();

  /// Computes the constants for the medium temperature: pK(T) from pK, ΔH and ΔCp at 25 °C by the
  /// integrated van 't Hoff equation with constant heat capacity.
  void konst_k();

  /// Ionic strength in mmol/l: half the sum of concentration times charge squared.
  void ionstrong();

  /// A constant of the last `konst_k`, slots of `pk`; zero before the first.
  [[nodiscard]] double constant(int slot) const { return constants_.at(static_cast<size_t>(slot)); }

 private:
  struct HardnessSet;
  struct IonConductivity;

  void show(int number, const QString& text = {});

  // Input checks.
  void checkField(int index, bool representable, int& status);
  bool rejectOutOfRange(int index, bool representable, int& status);
  void checkLeitfähigkeit(bool representable, int& status);
  void checkPh(bool representable, int& status);
  void checkTemperatur(bool representable, int& status);
  void checkKs82(bool representable, int& status);
  void checkKs43(bool representable, int& status);
  void checkKb82(bool representable, int& status);
  void checkKonzentration(int index, bool representable, int& status);
  bool phExceedsKs82();
  bool ks82TooSmallForPh();
  void resetKs82();

  // Calculation.
  IonConductivity minimumConductivity(double factor);
  void conductivityFromIons(const IonConductivity& ions);
  [[nodiscard]] double hydrogencarbonateEquivalent() const;
  static void completeHardness(HardnessSet& set);
  bool hardnessContradicts(HardnessSet& set);

  double value(int index) const { return program_.record.value[index].toDouble(); }
  bool isEmpty(int index) const { return program_.record.text[index].isEmpty(); }
  void clear(std::initializer_list<int> indices);

  /// Stores a result with its display text. False, and the field cleared, if it is no number or
  /// does not fit.
  bool store(int index, double result, int kind);

  /// Stores only the value, the text stays; 0 if it is no number or does not fit.
  void storeValue(int index, double result);

  Program& program_;
  Questions& questions_;
  Werteingabe entry_;
  std::array<double, 6> constants_{};
};

}  // namespace calvora
