#pragma once

#include <QStringList>
#include <array>
#include <optional>
#include <span>
#include <vector>

#include "model/record.h"
#include "plausi/uncertainty.h"

namespace calvora {

/// The inputs that were measured and typed, or read from a file, by field. What the program
/// completed is none of them, and neither is a value outside the range of its field, which only a
/// file can hold.
class Inputs {
 public:
  explicit Inputs(const AnalysisRecord& record);

  [[nodiscard]] std::optional<double> operator[](int field) const;
  [[nodiscard]] bool has(int field) const { return (*this)[field].has_value(); }
  void set(int field, double value) { value_.at(static_cast<size_t>(field)) = value; }

  /// Why a field is none of them, to stand behind its name; empty where it simply is not there.
  [[nodiscard]] QString remarkOn(int field) const;

 private:
  void leaveOutCompletedHardness();

  static constexpr size_t kFields = 27;
  std::array<std::optional<double>, kFields> value_;
  std::array<bool, kFields> completed_{};
  std::array<bool, kFields> outOfRange_{};
};

/// The quantities that are compared, in the units of the fields; charges in mmol/l.
enum class Figure : size_t {
  kPh,
  kPhIteration,
  kPhNäherung,
  kPhZweite,    ///< "zweite": by the second calculation
  kPhAusKs82,   ///< all of Ks8,2 taken as hydroxide
  kPhAusLf,     ///< all of the conductivity taken as sodium hydroxide
  kPhHydroxid,  ///< of the hydroxide that 2 Ks8,2 − Ks4,3 proves
  kLf,
  kLfIonen,
  kLfMindest,  ///< of the measured pH alone
  kCo2Ks43,    ///< from pH and Ks4,3, by the second calculation
  kKs82,
  kKs82Höchstens,  ///< at the measured pH
  kKb82,
  kKb82Höchstens,  ///< at the measured pH
  kGesamthärte,    ///< typed
  kHärteCaMg,
  kHärte,  ///< typed, or from calcium and magnesium
  kKarbonathärte,
  kKationen,
  kAnionen,
  kHco3,
  kHco3Zweite,
  kCo2,
  kCo2Zweite,
  kIndex,
  kIndexZweite,
  kCount
};

/// All figures of one water; what cannot be computed is empty, and none is infinite or no number.
class Figures {
 public:
  [[nodiscard]] const std::optional<double>& operator[](Figure figure) const {
    return value_.at(static_cast<size_t>(figure));
  }
  void set(Figure figure, std::optional<double> value);

 private:
  std::array<std::optional<double>, static_cast<size_t>(Figure::kCount)> value_;
};

/// Computes all figures from the typed inputs alone: the ten steps on a record that holds nothing
/// else, so that no result of earlier inputs takes part, and the second calculation.
Figures figuresOf(const Inputs& inputs);

/// The figures of a water, and how they move when each input moves by its uncertainty.
class Spread {
 public:
  Spread(const Inputs& inputs, const Uncertainties& uncertainties);

  [[nodiscard]] const Figures& figures() const { return figures_; }

  /// Expanded uncertainty of a figure. Empty where there is none or it cannot be told.
  [[nodiscard]] std::optional<double> of(Figure figure) const;

  /// Expanded uncertainty of the difference of two figures. An input that both rest on counts once.
  [[nodiscard]] std::optional<double> of(Figure a, Figure b) const;

 private:
  /// One input moved up and down within its range, and what that does.
  struct Change {
    double uncertainty;
    double up;
    double down;
    Figures above;
    Figures below;
  };

  template <class Quantity>
  std::optional<double> spreadOf(const Quantity& quantity) const;

  Figures figures_;
  std::vector<Change> changes_;
};

}  // namespace calvora
