#pragma once

#include <QStringList>

namespace calvora {

/// Display texts of a volume corrected from the temperature Tx to 20 °C.
struct KorrigiertesVolumen {
  QString volumen;  ///< ml, two decimals
  QString faktor;   ///< corrected by measured volume, three decimals
};

/// The volumes to choose from: "10 ml" to "200 ml" in steps of 10 ml.
QStringList volumenListe();

/// The temperatures to choose from: "20 °C" to "100 °C" in steps of 10 °C.
QStringList temperaturListe();

/// Corrects the volume that `volumen` shows in ml by the expansion e of water, in ‰, between 20 °C
/// and the chosen entry of the temperature list (0 to 8, else runtime error 9):
/// V20 = V × (1 − e / 1000). 50 ml at 30 °C are 49,87 ml, factor 0,997. Both texts are empty where
/// the volume is 0 or no number, since there is no factor then.
KorrigiertesVolumen korrigiertesVolumen(const QString& volumen, int temperatur);

}  // namespace calvora
