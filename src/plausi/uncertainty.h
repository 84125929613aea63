#pragma once

#include <QString>
#include <optional>
#include <vector>

namespace calvora {

/// Expanded measurement uncertainty (k = 2) of one typed field: an absolute part in the field's
/// unit and a part relative to the value, added as independent contributions.
struct Uncertainty {
  int field = 0;
  double absolute = 0;
  double percent = 0;

  [[nodiscard]] double of(double value) const;

  friend bool operator==(const Uncertainty&, const Uncertainty&) = default;
};

/// One row for each field that the comparisons rest on, in the order of the mask.
using Uncertainties = std::vector<Uncertainty>;

/// The largest part, absolute or in percent, that a user can enter.
inline constexpr double kLargestUncertainty = 1000;

/// A typed part of an uncertainty; empty for what is no number from 0 to the largest.
std::optional<double> uncertaintyIn(const QString& typed);

/// What is assumed where the user says nothing else.
const Uncertainties& defaultUncertainties();

/// The text that the settings keep: empty for the defaults.
QString settingOf(const Uncertainties& uncertainties);

/// What a setting says; the default in place of every row that is missing or no number of 0 or
/// more.
Uncertainties uncertaintiesOf(const QString& setting);

}  // namespace calvora
