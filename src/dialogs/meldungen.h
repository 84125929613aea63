#pragma once

#include "base/questions.h"

namespace calvora {

/// Codes of the program's message catalogue.
namespace meldung {
inline constexpr int kPfadFehlt = 1;
inline constexpr int kPfadBestätigen = 2;
inline constexpr int kPfadGespeichert = 3;
inline constexpr int kDruckzeileGespeichert = 6;
inline constexpr int kVorherSpeichern = 7;
inline constexpr int kDruckzeileZuLang = 10;
inline constexpr int kNichtsZuSpeichern = 11;
inline constexpr int kNichtsZuDrucken = 12;
inline constexpr int kWiederherstellen = 13;
inline constexpr int kTeilWiederherstellen = 14;
inline constexpr int kDateiFehlt = 20;
inline constexpr int kNichtGeladen = 21;
inline constexpr int kNichtGeöffnet = 22;
inline constexpr int kHandbuch = 23;
}  // namespace meldung

/// The catalogue message of `code`, an empty one for any other. `extra` is what it tells: a path,
/// names of files, or the time in the messages 13 and 14.
Message katalogMeldung(int code, const QString& extra = {});

}  // namespace calvora
