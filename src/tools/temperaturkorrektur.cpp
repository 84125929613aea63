#include "tools/temperaturkorrektur.h"

#include <array>

#include "base/runtime_error.h"
#include "entry/number_text.h"

namespace calvora {

namespace {

constexpr int kStep = 10;
constexpr int kVolumes = 20;
constexpr int kColdest = 20;

/// Expansion of water from 20 °C to 20, 30 … 100 °C in ‰.
constexpr std::array kExpansion{0.0, 2.6, 6.1, 10.2, 15.0, 20.5, 26.4, 33.0, 44.0};

double expansionAt(int temperature) {
  if (temperature < 0 || temperature >= static_cast<int>(kExpansion.size())) {
    throw RuntimeError(ErrorNumber::kIndex, QStringLiteral("temperature %1").arg(temperature));
  }
  return kExpansion.at(static_cast<size_t>(temperature));
}

QStringList entries(int first, size_t count, const QString& unit) {
  QStringList list;
  for (size_t i = 0; i < count; ++i) {
    list += QString::number(first + kStep * static_cast<int>(i)) + unit;
  }
  return list;
}

}  // namespace

QStringList volumenListe() {
  return entries(kStep, kVolumes, QStringLiteral(" ml"));
}

QStringList temperaturListe() {
  return entries(kColdest, kExpansion.size(), QStringLiteral(" °C"));
}

KorrigiertesVolumen korrigiertesVolumen(const QString& volumen, int temperatur) {
  const double measured = numberIn(volumen);
  if (measured == 0) return {};
  const double corrected = measured - expansionAt(temperatur) * measured / 1000;
  return {.volumen = numberText(corrected, Format::kTwoDecimals),
          .faktor = numberText(corrected / measured, Format::kThreeDecimals)};
}

}  // namespace calvora
