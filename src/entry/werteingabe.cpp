#include "entry/werteingabe.h"

#include <algorithm>
#include <cstdlib>

#include "base/guarded.h"

namespace calvora {

using namespace Qt::StringLiterals;

void Werteingabe::wertprüf(QString& text, int& code) const {
  const bool belowAllowed = static_cast<Check>(code) == Check::kBelowLimit;
  guarded(questions_, u" werteingabe\\wertprüf"_s,
          [&] { code = static_cast<int>(checkTyped(text, belowAllowed)); });
}

void Werteingabe::werteingabe(QString& text, const QString& minimum, QString& maximum,
                              int& code) const {
  const bool belowAllowed = static_cast<Check>(code) == Check::kBelowLimit;
  guarded(questions_, u" werteingabe\\werteingabe"_s,
          [&] { code = static_cast<int>(checkLimits(text, minimum, maximum, belowAllowed)); });
}

void Werteingabe::strzahl(const QString& text, NumberCell& value) const {
  guarded(questions_, u" werteingabe\\strzahl"_s, [&] { value = cellOf(text); });
}

void Werteingabe::formz(NumberCell& value, QString& text, int& kind) const {
  guarded(questions_, u" werteingabe\\formz"_s, [&] {
    const double number = numberOf(value);
    const Format format = usedFormat(number, static_cast<Format>(std::abs(kind)));
    text = numberText(number, format);
    const bool writeBack = kind < 0 || format == Format::kWhole;
    kind = static_cast<int>(format);
    if (number == 0) return;
    if (format == Format::kScientific) {
      value = text;
    } else if (writeBack || text.isEmpty()) {
      value = cellOf(QString(text).replace(','_L1, '.'_L1));  // it may begin with the comma
    }
  });
}

void Werteingabe::wertformat(QString& text, int& kind) const {
  guarded(questions_, u" werteingabe\\wertformat"_s, [&] {
    if (text == "0"_L1) return;
    const int used = std::max(kind, 1);
    text = reformatted(text, static_cast<Format>(used));
    kind = used;
  });
}

void Werteingabe::formstr(QString& text, int decimals) const {
  guarded(questions_, u" werteingabe\\formstr"_s, [&] { text = withDecimals(text, decimals); });
}

}  // namespace calvora
