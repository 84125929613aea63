#pragma once

namespace calvora {

/// The conductivity at the measuring temperature (°C) from the one at 25 °C, in the same unit:
/// 2.1 % per kelvin of the value at 25 °C. 1000 µS/cm at 25 °C are 790 µS/cm at 15 °C.
constexpr double conductivityAt(double temperature, double conductivityAt25) {
  return conductivityAt25 * (1 + 0.021 * (temperature - 25));
}

}  // namespace calvora
